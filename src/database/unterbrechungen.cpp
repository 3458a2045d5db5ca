// What is said of a save that was broken off: by a crash, a loss of power, a full disk.
#include <vector>

#include "database/datenbank_routinen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {

// A message box must not stand open while the file is being opened: what happened is told afterwards.
void DatenbankRoutinen::mitMeldung(const QString& Pfad,
                                   const std::function<void(const jet::RecoverySink&)>& oeffnen) {
  std::vector<jet::RecoveryResult> ergebnisse;
  const auto alleMelden = [&] {
    for (const jet::RecoveryResult& ergebnis : ergebnisse) unterbrechungMelden(Pfad, ergebnis);
  };
  try {
    oeffnen([&](const jet::RecoveryResult& ergebnis) { ergebnisse.push_back(ergebnis); });
  } catch (const Datenbankfehler&) {
    alleMelden();
    throw;
  }
  alleMelden();
}

void DatenbankRoutinen::unterbrechungMelden(const QString& Pfad, const jet::RecoveryResult& ergebnis) {
  if (ergebnis.what == jet::Recovery::RolledBack) {
    fehlerProtokollieren(u"Ein unterbrochener Speichervorgang wurde rückgängig gemacht: "_s + Pfad);
    fehlerProtokollieren(u"Die Datenbank ist wieder so, wie sie vor diesem Speichervorgang war."_s, 4);
    return;
  }
  const QString datei = QString::fromStdU16String(ergebnis.keptAs.u16string());
  fehlerProtokollieren(
      u"Die Aufzeichnung eines unterbrochenen Speichervorgangs passt nicht zur Datenbank: "_s + Pfad);
  fehlerProtokollieren(u"Die Datenbank wurde nicht verändert. Aufbewahrt als: "_s + datei, 4);
  meldungen_.zeigen(
      {u"Das letzte Speichern in die Datenbank "_s + Pfad +
           u" wurde unterbrochen, und seither wurde die Datenbank von einem anderen Programm geändert oder "
           u"durch eine Sicherungskopie ersetzt. Sie wurde deshalb so gelassen, wie sie ist.\r\n\r\n"
           u"Bitte prüfen Sie in Verbindo, ob die zuletzt kopierten Serienbrief-Adressen stimmen, und lassen "
           u"Sie die Datenbank in Verbindo reparieren und komprimieren.\r\n\r\n"
           u"Was vor der Unterbrechung in der Datenbank stand, ist aufbewahrt in der Datei "_s +
           datei + u". Löschen Sie diese Datei erst, wenn in der Datenbank alles in Ordnung ist."_s,
       Symbol::Ausrufezeichen});
}

}  // namespace pelvanto
