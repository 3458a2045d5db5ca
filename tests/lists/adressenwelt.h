#pragma once

#include <gtest/gtest.h>

#include "common/testprogramm.h"
#include "jet/check.h"
#include "steps/umgebung.h"

namespace pelvanto {

// A contact database in memory that is written to. It is checked as a whole when a test is over.
class Adressenwelt : public testing::Test {
 protected:
  ~Adressenwelt() override {
    if (!programm.dateien.existiert(programm.werte.DatenbankPfad)) return;
    EXPECT_EQ(gefundenerSchaden(), std::vector<std::string>());
  }

  void anlegen() { programm.datenbankAnlegen(datenbank); }
  // All rows of a query, the fields of each joined by "|"; Null is "-".
  QStringList zeilen(const QString& felder, const QString& rest) {
    const auto verbindung = umgebung.datenbank.direktOeffnen(programm.werte.DatenbankPfad, true);
    QStringList zeilen;
    for (Abfrage abfrage = verbindung->abfragen(QStringLiteral("SELECT ") + felder + u' ' + rest);
         !abfrage.amEnde(); abfrage.weiter()) {
      QStringList werte;
      for (const QString& feld : felder.split(QStringLiteral(", "))) {
        const Feldwert wert = abfrage.feld(feld);
        const bool null = std::holds_alternative<std::monostate>(wert);
        werte << (null ? QStringLiteral("-") : umgebung.typen.text(wert));
      }
      zeilen << werte.join(u'|');
    }
    return zeilen;
  }

  test::Testprogramm programm;
  test::VerbindoDatenbank datenbank;
  Umgebung umgebung{programm.aussenwelt(programm.jet), programm.werte};

 private:
  std::vector<std::string> gefundenerSchaden() {
    jet::Database geprueft(programm.jet, alsDateipfad(programm.werte.DatenbankPfad));
    return jet::check(geprueft).errors;
  }
};

}  // namespace pelvanto
