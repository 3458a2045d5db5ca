// Plays the whole wizard on a prepared program folder, by the buttons of the real window and without a
// person:
//   pelvanto-vorfuehrung [--datum=2026-03-16T08:09:10] [--sprache=de_AT] [--stil=fusion] [--handbuch] ORDNER
// Leaves payment file and logs in the folder, and in folders of their own what would be printed (druck), what
// would lie on the desktop (csv), and pictures of all pages (bilder). With --handbuch also pictures of what
// the handbook shows beside the pages: the message boxes, the box about the program, and the entry of a wrong
// IBAN.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include <iostream>

#include "demo/ablauf.h"
#include "demo/bilder.h"
#include "demo/seams.h"
#include "jet/file.h"
#include "seams/real/echte_oberflaeche.h"
#include "seams/real/echter_drucker.h"
#include "seams/real/echtes_dateisystem.h"
#include "shell/deutsch.h"
#include "shell/haupt_fenster.h"
#include "shell/schrift.h"
#include "support/pfade.h"

namespace {

using namespace pelvanto;

QStringList zahlungsdateien(const QString& ordner) {
  return QDir(ordner).entryList({"UE?????.xml"}, QDir::Files);
}

// A folder and how many files of this kind lie in it.
std::string ordnerzeile(const QString& ordner, const QString& endung) {
  const auto anzahl = QDir(ordner).entryList({"*." + endung}, QDir::Files).size();
  return ordner.toStdString() + " (" + std::to_string(anzahl) + " Dateien)\n";
}

int vorfuehren(const QString& ordner, Uhr& uhr, const Gebietsschema& schema, bool fuerHandbuch) {
  const QString bilder = pfadVerbinden(ordner, "bilder");
  const QString druck = pfadVerbinden(ordner, "druck");
  const QString csv = pfadVerbinden(ordner, "csv");
  for (const QString& neuer : {bilder, druck, csv}) {
    if (QDir().mkpath(neuer)) continue;
    std::cerr << "Der Ordner " << neuer.toStdString() << " kann nicht angelegt werden.\n";
    return 1;
  }
  vorfuehrung::GedruckteMeldungen gedruckte;
  vorfuehrung::FotografierteMeldungen fotografierte(bilder);
  vorfuehrung::GedruckteMeldungen& meldungen = fuerHandbuch ? fotografierte : gedruckte;
  EchteOberflaeche oberflaeche;
  EchtesDateisystem dateisystem;
  PDFDrucker drucker(druck);
  vorfuehrung::OrdnerAnwendungen anwendungen(csv);
  Umgebung umgebung(
      {uhr, meldungen, oberflaeche, schema, dateisystem, jet::systemFiles(), drucker, anwendungen},
      prozesswerteFuer(ordner, dateisystem));
  const QStringList vorher = zahlungsdateien(ordner);
  HauptFenster fenster(umgebung);
  oberflaeche.fortschrittZeigenMit([&](int nummer, int anzahl) {
    fenster.fortschrittZeigen(nummer, anzahl);
    if (anzahl > 0 && nummer == (anzahl + 1) / 2) {
      vorfuehrung::bilderSpeichern(fenster, bilder, QStringLiteral("fortschritt"));
    }
  });
  const auto zwischenstand = [&] {
    const auto verbindung = umgebung.datenbank.direktOeffnen(umgebung.werte.DatenbankPfad, true);
    const Abfrage adressen = verbindung->abfragen(QStringLiteral("SELECT IDNummer FROM Adressen"));
    return vorfuehrung::Zwischenstand{adressen.anzahl(), meldungen.anzahl};
  };
  if (!fenster.starten()) return 1;
  fenster.show();
  fenster.activateWindow();
  try {
    vorfuehrung::wizardDurchspielen(fenster, bilder, zwischenstand);
  } catch (const vorfuehrung::Abbruch& abbruch) {
    std::cerr << abbruch.what() << '\n';
    return 1;
  }
  if (fuerHandbuch) {
    vorfuehrung::ueberFotografieren(fenster, bilder);
    vorfuehrung::falscheIBANFotografieren(fenster, bilder);
  }
  fenster.close();

  QStringList neue = zahlungsdateien(ordner);
  for (const QString& alte : vorher) neue.removeAll(alte);
  std::cout << "Zahlungsdatei: "
            << (neue.isEmpty() ? "keine" : pfadVerbinden(ordner, neue.first()).toStdString())
            << "\nProtokolle:    " << ordner.toStdString() << "\nListen:        " << ordnerzeile(druck, "pdf")
            << "CSV-Dateien:   " << ordnerzeile(csv, "csv")
            << "Bilder:        " << ordnerzeile(bilder, "png");
  return neue.size() == 1 ? 0 : 1;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication programm(argc, argv);
  QApplication::setFont(fensterschrift());
  qtTexteAufDeutsch(&programm);
  QCommandLineParser optionen;
  optionen.setApplicationDescription("Spielt den ganzen Ablauf in einem vorbereiteten Programmordner durch.");
  const QCommandLineOption datum("datum", "Feste Uhrzeit, z.B. 2026-03-16T08:09:10.", "zeit");
  const QCommandLineOption sprache("sprache", "Zahlen und Beträge wie in dieser Sprache.", "sprache",
                                   "de_DE");
  const QCommandLineOption handbuch("handbuch", "Auch Bilder der Meldungen und einer falschen IBAN.");
  const QCommandLineOption stil("stil", "Aussehen der Bedienelemente.", "stil", "fusion");
  optionen.addOptions({datum, sprache, stil, handbuch});
  optionen.addPositionalArgument("ORDNER", "Programmordner mit Verbindo.mdb und verbindo.ini");
  optionen.addHelpOption();
  optionen.process(programm);
  const QDateTime zeit = QDateTime::fromString(optionen.value(datum), Qt::ISODate);
  if (optionen.positionalArguments().size() != 1 || (optionen.isSet(datum) && !zeit.isValid())) {
    std::cerr << optionen.helpText().toStdString();
    return 2;
  }
  QApplication::setStyle(optionen.value(stil));
  vorfuehrung::Vorfuehruhr uhr(zeit);
  const vorfuehrung::Sprachschema schema{QLocale(optionen.value(sprache))};
  const QDir ordner(optionen.positionalArguments().first());
  return vorfuehren(QDir::toNativeSeparators(ordner.absolutePath()), uhr, schema, optionen.isSet(handbuch));
}
