#include "demo/ablauf.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QFocusEvent>
#include <QLineEdit>

#include <iostream>

#include "demo/bilder.h"
#include "shell/haupt_fenster.h"

namespace pelvanto::vorfuehrung {

namespace {

QAbstractButton& bereiterKnopf(HauptFenster& fenster, const QString& name) {
  auto* knopf = fenster.findChild<QAbstractButton*>(name);
  if (!knopf || !knopf->isVisible())
    throw Abbruch("Der Knopf " + name.toStdString() + " ist nicht zu sehen.");
  if (!knopf->isEnabled()) throw Abbruch("Der Knopf " + name.toStdString() + " ist nicht eingeschaltet.");
  return *knopf;
}

void druecken(HauptFenster& fenster, const QString& name) {
  bereiterKnopf(fenster, name).click();
  QApplication::processEvents();
}

void rechtsDruecken(HauptFenster& fenster, const QString& name) {
  QAbstractButton& knopf = bereiterKnopf(fenster, name);
  const QPoint mitte = knopf.rect().center();
  QContextMenuEvent rechts(QContextMenuEvent::Mouse, mitte, knopf.mapToGlobal(mitte));
  QApplication::sendEvent(&knopf, &rechts);
  QApplication::processEvents();
}

void zeile(const QString& text) { std::cout << text.toStdString() << std::endl; }

QString zahlen(const Liste& behalten, const Liste& ausgeschieden) {
  return QStringLiteral("%1 in der Liste, %2 ausgeschieden")
      .arg(behalten.anzahl())
      .arg(ausgeschieden.anzahl());
}

QString ergebnis(const Seiten& seiten, int seite) {
  switch (seite) {
    case 0:
      return QStringLiteral("%1 in der Liste").arg(seiten.seite1.lvwListe1.anzahl());
    case 1:
      return zahlen(seiten.seite2.lvwListe2, seiten.seite2.lvwListeAusgeschieden2);
    case 2:
      return zahlen(seiten.seite3.lvwListe3, seiten.seite3.lvwListeAusgeschieden3);
    case 3:
      return zahlen(seiten.seite3b.lvwListe3b, seiten.seite3b.lvwListeAusgeschieden3b);
    case 4:
      return zahlen(seiten.seite4.lvwListe4, seiten.seite4.lvwAusgeschieden4) +
             QStringLiteral("; %1 kg, davon %2 kg für die Berechnung, %3 je kg; verteilt %4 von %5")
                 .arg(seiten.seite4.lblMengeGesamt.text, seiten.seite4.lblMengeFuerBerechnung.text,
                      seiten.seite4.lblPreisProKilo.text, seiten.seite4.lblVerteilt.text,
                      seiten.seite4.txtGesamtbetrag.text);
    default:
      return zahlen(seiten.seite5.lvwListe5, seiten.seite5.lvwAusgeschieden5) +
             QStringLiteral("; netto %1, Mwst. %2, brutto %3")
                 .arg(seiten.seite5.lblAlleNetto.text, seiten.seite5.lblAlleSteuer.text,
                      seiten.seite5.lblAlleBrutto.text);
  }
}

void adressenKopieren(HauptFenster& fenster, const QString& knopf, const Liste& liste,
                      const std::function<Zwischenstand()>& zwischenstand) {
  const Zwischenstand vorher = zwischenstand();
  druecken(fenster, knopf);
  const Zwischenstand nachher = zwischenstand();
  zeile(QStringLiteral("  Serienbrief-Adressen: %1 von %2 Personen neu angelegt, %3 Meldungen")
            .arg(nachher.adressen - vorher.adressen)
            .arg(liste.anzahl())
            .arg(nachher.meldungen - vorher.meldungen));
}

}  // namespace

void wizardDurchspielen(HauptFenster& fenster, const QString& bilderordner,
                        const std::function<Zwischenstand()>& zwischenstand) {
  const QStringList schritte{"1", "2", "3", "3b", "4", "5"};
  for (int seite = 0; seite < schritte.size(); ++seite) {
    const QString& schritt = schritte[seite];
    druecken(fenster, "cmdErgebnisZeigen" + schritt);
    zeile(QStringLiteral("Schritt %1: %2")
              .arg(schritt == "3" ? "3a" : schritt, ergebnis(fenster.seiten(), seite)));
    if (!bilderSpeichern(fenster, bilderordner, "schritt" + schritt))
      throw Abbruch("Die Bilder konnten nicht gespeichert werden: " + bilderordner.toStdString());
    druecken(fenster, "cmdDrucken" + schritt);
    rechtsDruecken(fenster, "cmdDrucken" + schritt);
    const Seiten& seiten = fenster.seiten();
    if (schritt == "3") {
      adressenKopieren(fenster, "cmdSerienbriefe3Ausgeschieden", seiten.seite3.lvwListeAusgeschieden3,
                       zwischenstand);
    }
    if (schritt == "5") adressenKopieren(fenster, "cmdSerienbriefe5", seiten.seite5.lvwListe5, zwischenstand);
    druecken(fenster, schritt == "5" ? "cmdDatentraegerErstellen" : "cmdWeiter" + schritt);
  }
}

void ueberFotografieren(HauptFenster& fenster, const QString& bilderordner) {
  fenster.findChild<QAction*>("mnuUeber")->trigger();
  auto* kasten = fenster.findChild<QDialog*>("UeberKasten");
  bilderSpeichern(*kasten, bilderordner, QStringLiteral("ueber"));
  kasten->reject();
}

void falscheIBANFotografieren(HauptFenster& fenster, const QString& bilderordner) {
  auto* feld = fenster.findChild<QLineEdit*>("txtIBAN");
  const QString richtig = feld->text();
  QString falsch = richtig.trimmed();
  falsch.back() = falsch.back() == u'9' ? u'8' : u'9';
  feld->setText(falsch);
  QFocusEvent verlassen(QEvent::FocusOut);
  QApplication::sendEvent(feld, &verlassen);  // the entry is checked again when the field is left
  bilderSpeichern(*feld->parentWidget(), bilderordner, QStringLiteral("iban-falsch"));
  feld->setText(richtig);
}

}  // namespace pelvanto::vorfuehrung
