// What the window's buttons and keys do around the steps.
#include <utility>

#include "steps/beschaeftigt.h"
#include "steps/schritte.h"
#include "steps/start.h"
#include "steps/texte.h"

using namespace Qt::StringLiterals;

namespace pelvanto {

void cmdErgebnisZeigen1_Click(Umgebung& umgebung, Seiten& seiten) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, seiten.seite1.cmdErgebnisZeigen1);
  ListeFuellen1(umgebung, seiten);
}

void cmdErgebnisZeigen2_Click(Umgebung& umgebung, Seiten& seiten) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, seiten.seite2.cmdErgebnisZeigen2);
  ListeFuellen2(umgebung, seiten);
}

void cmdErgebnisZeigen3_Click(Umgebung& umgebung, Seiten& seiten) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, seiten.seite3.cmdErgebnisZeigen3);
  ListeFuellen3(umgebung, seiten);
}

void cmdErgebnisZeigen3b_Click(Umgebung& umgebung, Seiten& seiten) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, seiten.seite3b.cmdErgebnisZeigen3b);
  ListeFuellen3b(umgebung, seiten);
}

void cmdErgebnisZeigen4_Click(Umgebung& umgebung, Seiten& seiten) { ListeFuellen4(umgebung, seiten); }

void cmdDatentraegerErstellen_Click(Umgebung& umgebung, Seiten& seiten) {
  if (!einstellungenLesbar(umgebung,
                           u"Es wurde keine Zahlungsdatei erstellt, bitte versuchen Sie es noch einmal."_s)) {
    return;
  }
  seiten.seite5.cmdDatentraegerErstellen.ein = false;
  const QString iban = ohneBlanks(umgebung.ini.INILesen(abschnittAuszahlungen, u"EigeneIBAN"_s, {}));
  const QString bic = umgebung.ini.INILesen(abschnittAuszahlungen, u"EigeneBIC"_s, {});
  // Whatever becomes of the file: the same table is never written twice.
  const UeberweisungT tabelle = std::exchange(seiten.ueberweisungT, std::nullopt).value_or(UeberweisungT{});
  QString pfad;
  if (umgebung.zahlungsverkehr.UeberweisungDateiErstellen(tabelle, iban, bic, pfad)) {
    umgebung.kontrollliste.anbieten(pfad, tabelle, iban, bic);
  }
}

void serienbriefeKopieren(Umgebung& umgebung, Knopf& knopf, const Liste& liste) {
  const Beschaeftigt beschaeftigt(umgebung.welt.oberflaeche, knopf);
  umgebung.serienbriefe.SerienbriefAdressenKopieren(liste);
}

void markierteZeilenLoeschen(const DatenTypen& typen, Liste& liste, Beschriftung& geloescht,
                             Beschriftung& geloeschtLabel, Beschriftung& ergebnis) {
  const qint32 bisher = typen.TextInLong(geloescht.text);
  const int anzahl = liste.MarkierteLoeschen();
  geloescht.text = QString::number(anzahl + bisher);
  if (typen.TextInLong(geloescht.text) <= 0) return;
  ergebnis.text = QString::number(liste.anzahl());
  geloescht.sichtbar = geloeschtLabel.sichtbar = true;
}

}  // namespace pelvanto
