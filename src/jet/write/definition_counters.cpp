#include "jet/write/definition_counters.h"

#include "jet/encode/bytes.h"

namespace jet::write {

namespace {
constexpr std::size_t distinctKeysOffset = 4;  // in an index's entry counts
}

std::uint32_t DefinitionCounters::get(std::size_t offset) const {
  return transaction_.file().page(page_, page_, PageType::TableDefinition)->reader().u32(offset);
}

void DefinitionCounters::set(std::size_t offset, std::uint32_t value) {
  encode::put32(transaction_.change(page_, page_), offset, value);
}

void DefinitionCounters::rowAdded() { set(jet4.tdefRowCount, get(jet4.tdefRowCount) + 1); }

// The count is a hint and may be too small already.
void DefinitionCounters::rowRemoved() {
  if (const std::uint32_t rows = get(jet4.tdefRowCount); rows > 0) set(jet4.tdefRowCount, rows - 1);
}

void DefinitionCounters::distinctKeyAdded(std::size_t index) {
  const std::size_t offset = jet4.tdefSections + index * jet4.entryCountSize + distinctKeysOffset;
  set(offset, get(offset) + 1);
}

std::int32_t DefinitionCounters::lastAutoNumber() const {
  return static_cast<std::int32_t>(get(jet4.tdefAutoNumber));
}

void DefinitionCounters::setLastAutoNumber(std::int32_t number) {
  set(jet4.tdefAutoNumber, static_cast<std::uint32_t>(number));
}

}  // namespace jet::write
