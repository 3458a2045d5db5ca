#pragma once

#include <string>
#include <vector>

#include "jet/sql/planner.h"
#include "jet/sql/result_order.h"
#include "jet/sql/session.h"

namespace jet::sql {

// Memory that one query leaves to the next.
struct Workspace {
  // One per step of the plan.
  struct Level {
    Row row;
    std::vector<RowId> found;
    std::vector<Scalar> key;
    std::vector<Value> indexValues;
  };
  std::vector<Level> levels;
  ResultOrder order;
  Scalar left, right;
  std::string buffer;
};

// Answers a planned query. Errors: whatever reading finds; Damaged where an index contradicts its table.
ResultSet execute(const BoundSelect& select, const QueryPlan& plan, AccessPaths& paths, Workspace& workspace);

}  // namespace jet::sql
