#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "jet/create/database_builder.h"

// What the saving program of the kill test does to its database, so that the test knows every state.
namespace saves {

struct Person {
  jet::Text name, note;
  bool operator==(const Person&) const = default;
};
using State = std::map<std::int32_t, Person>;

inline jet::Text digits(std::int32_t number) {
  const std::string plain = std::to_string(number);
  return {plain.begin(), plain.end()};
}

// Notes in the row, on a page of their own and over several pages.
inline jet::Text note(std::int32_t save) {
  constexpr std::size_t lengths[] = {20, 1200, 0, 5000, 300};
  return jet::Text(lengths[save % 5], save % 2 == 0 ? u'ö' : u'Ω') + digits(save);
}

// One save is one transaction: it counts in a table of its own, adds person `save`, and changes or erases
// earlier ones.
struct Save {
  explicit Save(std::int32_t number) : number(number), added{u"Name " + digits(number * 7919), note(number)} {
    if (number % 3 == 0) erased = number - 2;
    if (number % 4 == 0) changed = number - 1;
  }
  std::int32_t number;
  Person added;
  std::int32_t erased = 0, changed = 0;  // 0: none; `changed` may be erased later only
  jet::Text newNote() const { return note(number + 3); }

  void apply(State& state) const {
    state[number] = added;
    state.erase(erased);
    if (changed != 0) state.at(changed).note = newNote();
  }
};

inline std::vector<std::uint8_t> makeDatabase() {
  using jet::ColumnType;
  jet::create::DatabaseBuilder builder;
  builder.addTable({.name = u"Stand", .columns = {{.name = u"Nummer", .type = ColumnType::Long}}})
      .insert({std::int32_t{0}});
  builder.addTable({.name = u"Personen",
                    .columns = {{.name = u"ID", .type = ColumnType::Long},
                                {.name = u"Name", .type = ColumnType::Text, .characters = 50},
                                {.name = u"Notiz", .type = ColumnType::Memo}},
                    .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                                {.name = u"Name", .columns = {u"Name"}}}});
  return builder.finish();
}

}  // namespace saves
