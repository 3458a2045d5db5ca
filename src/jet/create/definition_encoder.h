#pragma once

#include <cstdint>
#include <vector>

#include "jet/create/page_array.h"
#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::create {

enum class TableKind : std::uint8_t { User = 0x4E, System = 0x53 };

// A table definition as the string that its pages hold one after another, from the first page's header on.
// `distinctKeys`: per index, for the statistics. System tables have columns and names sorted by name; the
// others stand in the order of `definition.columns`.
Bytes encodeDefinition(const TableDefinition& definition, const std::vector<std::uint32_t>& distinctKeys,
                       TableKind kind);

// Spreads the string over definition.page and as many further pages as it needs.
void writeDefinition(PageArray& pages, std::uint32_t page, const Bytes& definition);

}  // namespace jet::create
