#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include "common/fake_drucker.h"
#include "common/fakes.h"
#include "common/speicher_jet.h"
#include "common/verbindo_datenbank.h"
#include "steps/umgebung.h"
#include "support/prozesswerte.h"
#include "support/windows1252.h"

namespace pelvanto::test {

// The program folder in memory, with everything around it that the program talks to.
struct Testprogramm {
  Testprogramm() {
    werte.ProgrammOrdner = QStringLiteral("/prog");
    werte.INIDatei = QStringLiteral("/prog/verbindo.ini");
    werte.DatenbankPfad = QStringLiteral("/prog/Verbindo.mdb");
    dateien.ordner(werte.ProgrammOrdner);
  }

  void datenbankAnlegen(const VerbindoDatenbank& datenbank) {
    ablegen(werte.DatenbankPfad, datenbank.bytes());
  }
  SpeicherDateisystem::Datei& ablegen(const QString& pfad, const std::vector<std::uint8_t>& bytes) {
    return dateien.anlegen(
        pfad, QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
  }

  // What the program has around it. The contact database may lie in other files, e.g. such as lose power;
  // then `dateien` needs a file of its name.
  Aussenwelt aussenwelt(jet::FileSystem& jetDateien) {
    return {uhr, meldungen, oberflaeche, gebietsschema, dateien, jetDateien, drucker, anwendungen};
  }

  // The lines of today's log, without their times, from their indents on.
  QStringList protokoll() const {
    return zeilen(uhr.jetzt().toString(QStringLiteral("yy_MM_dd")), QStringLiteral("^K ..:..:..  "));
  }
  // The lines of the error log, without their numbers and times.
  QStringList fehlerprotokoll() const {
    return zeilen(QStringLiteral("Fehlerprotokoll"), QStringLiteral("^\\d+;K ..\\...\\... ..:..:..  "));
  }

  SpeicherDateisystem dateien;
  SpeicherJet jet{dateien};
  FakeUhr uhr;
  FakeMeldungen meldungen;
  FakeOberflaeche oberflaeche;
  FakeGebietsschema gebietsschema;
  FakeDrucker drucker;
  FakeAnwendungen anwendungen;
  Prozesswerte werte;

 private:
  QStringList zeilen(const QString& datei, const QString& vorspann) const {
    const QString pfad = werte.ProgrammOrdner + u'/' + datei + QStringLiteral(".txt");
    if (!dateien.existiert(pfad)) return {};
    QStringList zeilen =
        ausWindows1252(dateien.inhalt(pfad)).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    zeilen.replaceInStrings(QRegularExpression(vorspann), QString());
    return zeilen;
  }
};

}  // namespace pelvanto::test
