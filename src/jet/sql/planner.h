#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/sql/access_paths.h"
#include "jet/sql/bound_select.h"

namespace jet::sql {

// Where the value comes from that a column of the table must equal.
struct KeyPart {
  HashColumn column;
  bool isLiteral = false;
  std::uint16_t literal = 0;  // position in BoundSelect::literals
  BoundColumn from;           // otherwise: a column of a table that was read before
};

// How one table is read, for every combination of rows of the tables before it.
struct PlanStep {
  enum class Kind : std::uint8_t { Scan, Index, Hash };
  std::uint8_t table = 0;
  Kind kind = Kind::Scan;
  bool isPartial = false;         // Index: it leaves some of the known values to be compared row by row
  std::size_t index = 0;          // Index: its number
  std::vector<KeyPart> indexKey;  // Index: its first columns, in its order
  std::vector<KeyPart> hashKey;   // all columns with a known value, by column; also where the index gives up
  std::vector<HashColumn> hashColumns;  // those of hashKey
  // Conditions that can be tested once the row is there: positions in BoundSelect::literals and ::columns.
  std::vector<std::uint16_t> literals, columns;
};

struct QueryPlan {
  std::vector<PlanStep> steps;
  std::size_t stepCount = 0;  // of `steps`: those beyond are kept for their memory
};

// Starts with the table whose conditions leave the fewest rows, then follows the joins.
void plan(const BoundSelect& select, AccessPaths& paths, QueryPlan& target);

// "PersonenGruppen: index PersonGruppe"
std::string describe(const PlanStep& step, const BoundSelect& select);

}  // namespace jet::sql
