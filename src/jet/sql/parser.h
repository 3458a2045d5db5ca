#pragma once

#include <string_view>

#include "jet/sql/ast.h"

namespace jet::sql {

// Parses one SELECT into `target` (its old content is dropped). Throws Error(Sql).
//   SELECT * | column, ... FROM source [WHERE equality AND ...] [ORDER BY column [ASC|DESC], ...] [;]
//   source: table | (source) | source INNER JOIN source ON equality AND ...; a source that is itself a join
//   stands in parentheses.
void parse(std::u16string_view query, Select& target);

}  // namespace jet::sql
