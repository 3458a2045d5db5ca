#include "shell/ueber_kasten.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace pelvanto {

namespace {

constexpr int kAbstandUeber = 12;

QLabel* absatz(const QString& name, const QString& text, QWidget* eltern) {
  auto* label = new QLabel(text, eltern);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

UeberKasten::UeberKasten(const Ueber& ueber, QWidget* eltern) : QDialog(eltern) {
  constexpr int kZeichen = 68;
  setObjectName("UeberKasten");
  setWindowTitle(QStringLiteral("Über Pelvanto"));
  setAttribute(Qt::WA_WindowPropagation);  // letters and colours of the window
  auto* anordnung = new QVBoxLayout(this);
  anordnung->setSpacing(kAbstandUeber);
  anordnung->addLayout(kopf(ueber.name));
  anordnung->addWidget(absatz("lblZweck", ueber.zweck, this));
  anordnung->addWidget(absatz("lblTasten", ueber.tasten, this));
  anordnung->addWidget(absatz("lblLizenzen", ueber.lizenzen, this));
  anordnung->addLayout(ordnerzeile(ueber.protokollordner));
  anordnung->addWidget(knopfleiste());
  const int breite = fontMetrics().horizontalAdvance(QString(kZeichen, u'n'));
  setFixedSize(breite, anordnung->totalHeightForWidth(breite));
  connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, &UeberKasten::handbuchGewuenscht);
}

QLayout* UeberKasten::kopf(const QString& name) {
  constexpr int kKante = 48;
  auto* zeile = new QHBoxLayout;
  auto* bild = new QLabel(this);
  bild->setPixmap(parentWidget()->windowIcon().pixmap(kKante));
  auto* titel = absatz("lblName", name, this);
  QFont gross = titel->font();
  gross.setBold(true);
  gross.setPointSizeF(gross.pointSizeF() * 1.4);
  titel->setFont(gross);
  zeile->setSpacing(kAbstandUeber);
  zeile->addWidget(bild);
  zeile->addWidget(titel, 1);
  return zeile;
}

// A read-only field: its text can be marked and copied without a mouse, and a long path be passed through.
QLayout* UeberKasten::ordnerzeile(const QString& ordner) {
  auto* zeile = new QHBoxLayout;
  auto* feld = new QLineEdit(ordner, this);
  feld->setObjectName("txtProtokollordner");
  feld->setReadOnly(true);
  feld->setAccessibleName(QStringLiteral("Ordner der Protokolle"));
  feld->setCursorPosition(0);
  auto* label = new QLabel(QStringLiteral("Ordner der &Protokolle:"), this);
  label->setObjectName("lblProtokollordner");
  label->setBuddy(feld);
  zeile->addWidget(label);
  zeile->addWidget(feld, 1);
  return zeile;
}

QDialogButtonBox* UeberKasten::knopfleiste() {
  auto* leiste = new QDialogButtonBox(this);
  const auto knopf = [leiste](const char* name, const QString& text, const QString& hinweis,
                              QDialogButtonBox::ButtonRole rolle) {
    QPushButton* neuer = leiste->addButton(text, rolle);
    neuer->setObjectName(name);
    neuer->setToolTip(hinweis);
    neuer->setAccessibleName(hinweis);
    neuer->setAutoDefault(false);
    return neuer;
  };
  QPushButton* handbuch = knopf("cmdHandbuch", QStringLiteral("&Handbuch"),
                                QStringLiteral("Handbuch öffnen (F1)"), QDialogButtonBox::ActionRole);
  QPushButton* oeffnen = knopf("cmdOrdner", QStringLiteral("&Ordner öffnen"),
                               QStringLiteral("Ordner der Protokolle öffnen"), QDialogButtonBox::ActionRole);
  QPushButton* schliessen = knopf("cmdSchliessen", QStringLiteral("&Schließen"),
                                  QStringLiteral("Dieses Fenster schließen"), QDialogButtonBox::RejectRole);
  connect(handbuch, &QPushButton::clicked, this, &UeberKasten::handbuchGewuenscht);
  connect(oeffnen, &QPushButton::clicked, this, &UeberKasten::ordnerGewuenscht);
  connect(schliessen, &QPushButton::clicked, this, &QDialog::reject);
  schliessen->setDefault(true);
  schliessen->setFocus();
  return leiste;
}

}  // namespace pelvanto
