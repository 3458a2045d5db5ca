#include "jet/collation_table.h"

namespace jet::collation {

namespace {

struct WeightRow {
  char16_t unit;
  Weight weight;
  WeightJet3 weightJet3;
};

constexpr WeightRow weightRows[] = {
#include "collation_rows.inc"
};

// A data file with more blocks than `blockCount` does not compile: the array would be left.
constexpr WeightTable buildWeightTable() {
  WeightTable table;
  std::uint8_t blocks = 1;
  for (const WeightRow& row : weightRows) {
    std::uint8_t& block = table.blockOf[row.unit >> 8];
    if (block == 0) block = blocks++;
    const std::size_t place = block * blockSize + (row.unit & 0xFF);
    table.weights[place] = row.weight;
    table.weightsJet3[place] = row.weightJet3;
  }
  return table;
}

}  // namespace

constinit const WeightTable weightTable = buildWeightTable();

static_assert(buildWeightTable().blockOf[0] == 1, "the Latin block comes first");

}  // namespace jet::collation
