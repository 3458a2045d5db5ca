#include "steps/person_oeffnen.h"

#include "support/pfade.h"

namespace pelvanto {

namespace {

// What a reference to nothing is: the list has no selected row.
const Dateifehler& nichtsGewaehlt() {
  static const Dateifehler fehler{91,
                                  QStringLiteral("Objektvariable oder With-Blockvariable nicht festgelegt")};
  return fehler;
}

}  // namespace

void personInVerbindoOeffnen(Umgebung& umgebung, const Liste& liste, int zeile, const QString& name) {
  if (liste.anzahl() == 0) return;
  Dateifehler fehler = nichtsGewaehlt();
  if (zeile >= 0 && zeile < liste.anzahl()) {
    const int id = liste.zeilen()[static_cast<std::size_t>(zeile)].id();
    fehler = umgebung.welt.anwendungen.starten(
        pfadVerbinden(umgebung.werte.ProgrammOrdner, QStringLiteral("Verbindo2.exe")),
        QStringLiteral("ID%1").arg(id));
  }
  if (fehler.ok()) return;
  umgebung.welt.meldungen.zeigen({QStringLiteral("Error %1 (%2) in procedure %3_DblClick of Formular Form1")
                                      .arg(QString::number(fehler.nummer), fehler.beschreibung, name)});
}

}  // namespace pelvanto
