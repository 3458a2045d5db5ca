// The backup copies beside a damaged database: which one is offered, and how it takes the database's place.
#include "database/datenbank_routinen.h"
#include "support/pfade.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kHoechstalterTage = 2;

QString mitSekunden(const QDateTime& zeit) { return zeit.toString(u"dd.MM.yyyy HH:mm:ss"); }
QString mitMinuten(const QDateTime& zeit) { return zeit.toString(u"dd.MM.yyyy HH:mm"); }

}  // namespace

// Like the database itself, its copies are found in any letter case.
QString DatenbankRoutinen::kopiepfad(const QString& Pfad, const QString& endung) const {
  QString pfad = Pfad.chopped(endung.size()) + endung;
  const QString ordner = OrdnerAusPfad(pfad);
  if (ordner.isEmpty()) return pfad;
  return pfadInJederSchreibweise(ordner, DateinameAusPfad(pfad), dateien_.dateisystem());
}

void DatenbankRoutinen::zeitLesen(Sicherungskopie& kopie, const QString& bezeichnung) {
  if (!dateien_.DateiVorhanden(kopie.datei)) return;
  Dateizeiten zeiten;
  if (!dateien_.ReadFileTime(kopie.datei, zeiten)) {
    fehlerProtokollieren(u"DatenbankRoutinen.DatenbankOeffnen: ReadFileTime = False bei "_s + kopie.datei, 4);
    return;
  }
  kopie.zeit = zeiten.letztesSchreiben;
  fehlerProtokollieren(u"DatenbankRoutinen.DatenbankOeffnen: "_s + bezeichnung + u" = "_s + kopie.datei, 4);
  fehlerProtokollieren(u"LastWrite: "_s + mitSekunden(kopie.zeit), 8);
}

void DatenbankRoutinen::sicherungskopieAnbieten(const QString& Pfad, Sicherungskopien& kopien) {
  kopien.BAK.datei = kopiepfad(Pfad, u"BAK"_s);
  kopien.KOM.datei = kopiepfad(Pfad, u"KOM"_s);
  zeitLesen(kopien.BAK, u"strBAK"_s);
  zeitLesen(kopien.KOM, u"strKOM"_s);
  const Sicherungskopie& kopie = kopien.KOM.zeit > kopien.BAK.zeit ? kopien.KOM : kopien.BAK;
  if (kopie.zeit <= uhr_.jetzt().addDays(-kHoechstalterTage)) {
    fehlerProtokollieren(u"Keine Wiederherstellung der Sicherungskopie von "_s + Pfad +
                         u", weil keine junge Datei vorhanden ist."_s);
    return;
  }
  if (jetDateien_.isOpen(alsDateipfad(Pfad))) {
    // Another connection would go on in a file that has no name any more: nothing is offered that cannot be
    // done now.
    fehlerProtokollieren(u"Keine Wiederherstellung der Sicherungskopie von "_s + Pfad +
                         u", weil die Datenbank noch benutzt wird."_s);
    return;
  }
  const QString frage = u"Die Datenbank "_s + Pfad +
                        u" kann nicht geöffnet werden. Vermutlich wurde sie beschädigt. Soll sie jetzt durch "
                        u"die Sicherungskopie vom Zeitpunkt "_s +
                        mitMinuten(kopie.zeit) + u" ersetzt werden?"_s;
  const Antwort antwort = meldungen_.zeigen(
      {frage, Symbol::Frage, Knoepfe::JaNein, u"Datenbank wiederherstellen aus Sicherungskopie"_s});
  if (antwort == Antwort::Ja) wiederherstellen(Pfad, kopie);
}

void DatenbankRoutinen::wiederherstellen(const QString& Pfad, const Sicherungskopie& kopie) {
  fehlerProtokollieren(u"Wiederherstellung der Sicherungskopie von "_s + Pfad + u" aus "_s + kopie.datei +
                       u"("_s + mitMinuten(kopie.zeit) + u") gewünscht!"_s);
  if (!kopieLesbar(kopie.datei)) return;
  if (!dateien_.DateiLoeschen(Pfad, 4)) return;
  fehlerProtokollieren(Pfad + u" gelöscht."_s, 4);
  if (!dateien_.DateiUmbenennen(kopie.datei, Pfad, false)) return;
  fehlerProtokollieren(kopie.datei + u" in "_s + Pfad + u" umbenannt."_s, 4);
  meldungen_.zeigen(
      {u" Die Datenbank wurde aus einer Sicherungskopie wiederhergestellt. Bitte prüfen Sie "
       "unbedingt in der Tageskontrolle oder aus dem Protokoll der Behandlungen, ob die "
       "zuletzt eingegebenen Behandlungen vorhanden sind."_s,
       Symbol::Ausrufezeichen});
}

bool DatenbankRoutinen::kopieLesbar(const QString& kopie) {
  try {
    vollstaendigLesen(jetDateien_, kopie);
    return true;
  } catch (const Datenbankfehler& fehler) {
    fehlerProtokollieren(
        u"Die Sicherungskopie "_s + kopie +
            u" ist nicht lesbar, es wurde nichts gelöscht. Fehler %1 ("_s.arg(fehler.nummer) +
            fehler.beschreibung + u")"_s,
        4);
    return false;
  }
}

}  // namespace pelvanto
