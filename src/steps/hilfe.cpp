#include "steps/hilfe.h"

#include "support/pfade.h"

namespace pelvanto {

namespace {

constexpr int kNormalesFenster = 1;

void hilfeFehlt(Umgebung& umgebung, const QString& text) {
  umgebung.protokoll.fehler(QString(text).replace(u'\n', u' '));
  umgebung.welt.meldungen.zeigen({text, Symbol::Ausrufezeichen, Knoepfe::Ok, QStringLiteral("Hilfe")});
}

}  // namespace

Ueber ueberPelvanto(const Prozesswerte& werte) {
  return {
      QStringLiteral("Pelvanto " PELVANTO_VERSION),
      QStringLiteral(
          "Zahlt den Mitgliedern des Vereins %1 den Qualitätszuschlag des Projekts Milvarte aus: "
          "arbeitet mit der Datenbank von Verbindo und schreibt die Überweisungsdatei für die Bank.")
          .arg(werte.OrganisationsName),
      QStringLiteral(
          "F1: Handbuch\nUmschalt+F1: Hinweis zum gewählten Knopf oder zur Liste\nStrg+F1: dieses Fenster"),
      QStringLiteral(
          "Pelvanto verwendet Qt %1 (Lizenz: LGPL 3) und die Laufzeit von GCC (GPL 3 mit Laufzeitausnahme). "
          "Unter Windows ist beides fest eingebaut, dazu die Laufzeit von mingw-w64 und die Teile, die Qt "
          "mitbringt, darunter FreeType, HarfBuzz, libpng, PCRE2 und zlib. Alle Lizenzen im Wortlaut stehen "
          "in "
          "Pelvanto-Lizenzen.txt im Ordner des Programms. Für Pelvanto selbst ist keine freie Lizenz "
          "vergeben.")
          .arg(QLatin1StringView(qVersion())),
      werte.ProgrammOrdner};
}

void handbuchOeffnen(Umgebung& umgebung) {
  const QString& ordner = umgebung.werte.ProgrammOrdner;
  QString vorhanden;
  int grund = 0;
  for (const QString& name :
       {QStringLiteral("Pelvanto-Handbuch.html"), QStringLiteral("Pelvanto-Handbuch.pdf")}) {
    const QString pfad = pfadVerbinden(ordner, name);
    if (!istDatei(pfad, umgebung.welt.dateisystem)) continue;
    const int antwort = umgebung.welt.anwendungen.oeffnen(pfad, kNormalesFenster);
    if (antwort > kOeffnenGelungenAb) return;
    if (!vorhanden.isEmpty()) continue;
    vorhanden = pfad;
    grund = antwort;
  }
  if (vorhanden.isEmpty()) {
    hilfeFehlt(umgebung, QStringLiteral("Das Handbuch wurde nicht gefunden. Kopieren Sie die Datei "
                                        "Pelvanto-Handbuch.html in den Ordner des Programms:\n%1")
                             .arg(ordner));
    return;
  }
  hilfeFehlt(
      umgebung,
      QStringLiteral("Das Handbuch konnte nicht geöffnet werden (Fehler Nr. %1). Wahrscheinlich ist keine "
                     "passende Anwendung vorhanden. Öffnen Sie selbst diese Datei:\n%2")
          .arg(QString::number(grund), vorhanden));
}

void protokollordnerOeffnen(Umgebung& umgebung) {
  const QString& ordner = umgebung.werte.ProgrammOrdner;
  const int antwort = umgebung.welt.anwendungen.oeffnen(ordner, kNormalesFenster);
  if (antwort > kOeffnenGelungenAb) return;
  hilfeFehlt(umgebung,
             QStringLiteral("Der Ordner konnte nicht geöffnet werden (Fehler Nr. %1). Öffnen Sie ihn "
                            "selbst:\n%2")
                 .arg(QString::number(antwort), ordner));
}

}  // namespace pelvanto
