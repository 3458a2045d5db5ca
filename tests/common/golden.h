#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <vector>

namespace pelvanto::test {

// One section of NAME.erwartet.txt: a table with columns and rows, or single values.
struct GoldAbschnitt {
  QString titel;
  std::optional<int> zeilenzahl;  // as the title line says; nullopt: single values
  QStringList spalten;
  std::vector<QStringList> zeilen;
  std::map<QString, QString> werte;
};

// A payout with its expected results: what the user enters, what the database holds, what must come out.
// Texts have their escapes (\t \n \r \0 \\) resolved. Amounts are plain numbers with a point.
struct Goldfall {
  QString name;
  std::map<QString, QString> parameter;
  std::vector<GoldAbschnitt> abschnitte;
  QStringList meldungen;            // message boxes that end the run, in order
  std::optional<QByteArray> datei;  // the payment file, byte for byte; nullopt: there must be none
  std::filesystem::path ordner;     // where the case stands

  QString wert(const QString& schluessel) const;
  // nullptr if the case does not get as far.
  const GoldAbschnitt* abschnitt(const QString& titel) const;
  // Puts the case's database at `pfad`: a copy of a finished one, or built from the description.
  void datenbankAnlegen(const std::filesystem::path& pfad) const;
};

// The cases in tests/golden and, where that folder exists, those of the shared test data beside the sources.
// `quellordner` is PELVANTO_SOURCE_DIR. Ordered by name. Throws std::runtime_error for a malformed case.
std::vector<Goldfall> goldfaelle(const std::filesystem::path& quellordner);

// For the names of parametrised tests: letters, digits and underscores only.
std::string testname(const Goldfall& fall);
std::ostream& operator<<(std::ostream& strom, const Goldfall& fall);

}  // namespace pelvanto::test
