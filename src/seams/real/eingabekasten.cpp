#include "seams/real/eingabekasten.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace pelvanto {

Eingabekasten::Eingabekasten(const Eingabe& eingabe, QWidget* eltern)
    : QDialog(eltern), feld_(new QLineEdit(eingabe.vorgabe, this)) {
  constexpr int kZeichen = 66;  // about as many as an address has
  setWindowTitle(eingabe.titel);
  auto* frage = new QLabel(QString(eingabe.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")), this);
  frage->setTextFormat(Qt::PlainText);
  frage->setWordWrap(true);
  frage->setBuddy(feld_);
  feld_->setAccessibleName(eingabe.titel);
  feld_->setAccessibleDescription(frage->text());

  auto* knoepfe = new QDialogButtonBox(this);
  knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setDefault(true);
  knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
  connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* anordnung = new QVBoxLayout(this);
  anordnung->setSpacing(12);
  anordnung->addWidget(frage);
  anordnung->addWidget(feld_);
  anordnung->addWidget(knoepfe);
  const int breite = feld_->fontMetrics().horizontalAdvance(QString(kZeichen, u'n'));
  setMinimumWidth(breite);
  resize(breite, anordnung->heightForWidth(breite));
  feld_->setFocus();
}

void Eingabekasten::setVisible(bool sichtbar) {
  QDialog::setVisible(sichtbar);
  feld_->end(false);
}

QString Eingabekasten::text() const { return feld_->text(); }

}  // namespace pelvanto
