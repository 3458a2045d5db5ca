#include "steps/start.h"

namespace pelvanto {

namespace {

// The contact program is older than this protection of Windows: what it saves in a protected folder lands in
// a copy of the user's own, which programs of today never see. Lists made of the other file would be out of
// date.
bool eigeneFassungDulden(Umgebung& umgebung) {
  const QString& eigene = umgebung.werte.EigeneFassung;
  if (eigene.isEmpty() || !umgebung.welt.dateisystem.existiert(eigene)) return true;
  umgebung.protokoll.fehler(QStringLiteral("Windows führt eine eigene Fassung der Datenbank: ") + eigene);
  const QString text =
      QStringLiteral(
          "Windows hat für Sie eine eigene Fassung der Verbindo-Datenbank angelegt:\n%1\n\nVerbindo arbeitet "
          "wahrscheinlich mit dieser Fassung, Pelvanto dagegen mit\n%2\n\nDie Listen können deshalb veraltet "
          "und die "
          "Auszahlung kann falsch sein. Soll Pelvanto trotzdem mit seiner Datenbank arbeiten?")
          .arg(eigene, umgebung.werte.DatenbankPfad);
  return umgebung.welt.meldungen.zeigen({text, Symbol::Ausrufezeichen, Knoepfe::JaNein}) == Antwort::Ja;
}

}  // namespace

bool einstellungenLesbar(Umgebung& umgebung, const QString& folge) {
  if (umgebung.ini.lesbar()) return true;
  const QString text = QStringLiteral(
                           "Die Einstellungen in der Datei %1 können zurzeit nicht gelesen werden. Ein "
                           "anderes Programm benutzt "
                           "sie, oder die Rechte dafür fehlen.")
                           .arg(umgebung.werte.INIDatei);
  umgebung.protokoll.fehler(text);
  umgebung.welt.meldungen.zeigen({text + QStringLiteral("\n\n") + folge, Symbol::Kritisch});
  return false;
}

bool datenbankBereit(Umgebung& umgebung) {
  if (umgebung.dateien.FileExists(umgebung.werte.DatenbankPfad)) return eigeneFassungDulden(umgebung);
  umgebung.welt.meldungen.zeigen(
      {"Die Verbindo-Datenbank wurde nicht gefunden. Das Programm wird beendet.", Symbol::Kritisch});
  return false;
}

}  // namespace pelvanto
