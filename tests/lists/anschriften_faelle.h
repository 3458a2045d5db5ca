#pragma once

#include <QString>
#include <QStringList>

#include <deque>
#include <filesystem>
#include <map>
#include <optional>
#include <ostream>
#include <vector>

#include "common/verbindo_datenbank.h"
#include "seams/meldungen.h"

namespace pelvanto::test {

// A block of tests/lists/anschriften/*.txt: a person, what the user answers, and what must come of it.
struct Anschriftfall {
  QString name;
  std::map<QString, QString> vorher;  // columns of the contact data, and "Vorwahl" and "Land"
  std::deque<Antwort> antworten;
  std::deque<std::optional<QString>> korrekturen;
  QStringList gefragt;  // boxes, in their order: "Frage: ...", "Hinweis: ..."
  QStringList danach;   // the other lines, sorted: fields of the address, changes of the contact data

  std::optional<std::u16string> text(const QString& feld) const;
  std::optional<std::int32_t> zahl(const QString& feld) const;
};

// Blocks of all files, in the order of the files' names. Throws std::runtime_error for a line that is not
// understood.
std::vector<Anschriftfall> anschriftfaelle();
// The words that the cases know.
std::vector<beispiel::Vorname> anschriftvornamen();

std::ostream& operator<<(std::ostream& strom, const Anschriftfall& fall);

}  // namespace pelvanto::test
