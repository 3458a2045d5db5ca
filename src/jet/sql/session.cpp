#include "jet/sql/session.h"

#include "jet/sql/binder.h"
#include "jet/sql/executor.h"
#include "jet/sql/parser.h"
#include "jet/sql/planner.h"

namespace jet::sql {

struct Session::State {
  explicit State(Database& database) : database(database) {}

  // What was learnt from pages that may read differently by now is learnt anew.
  void forgetStale() {
    const std::uint64_t version = database.pages().version();
    if (version == known) return;
    paths = AccessPaths();
    workspace = Workspace();
    known = version;
  }

  Database& database;
  std::uint64_t known = database.pages().version();
  AccessPaths paths;
  Select select;
  BoundSelect bound;
  QueryPlan plan;
  Workspace workspace;
};

Session::Session(Database& database) : state_(std::make_unique<State>(database)) {}

Session::~Session() = default;

ResultSet Session::query(std::u16string_view text, Plan* plan) {
  State& state = *state_;
  state.forgetStale();
  parse(text, state.select);
  bind(state.select, state.database, state.bound);
  sql::plan(state.bound, state.paths, state.plan);
  if (plan != nullptr) {
    plan->steps.clear();
    for (std::size_t i = 0; i < state.plan.stepCount; ++i) {
      plan->steps.push_back(describe(state.plan.steps[i], state.bound));
    }
  }
  return execute(state.bound, state.plan, state.paths, state.workspace);
}

}  // namespace jet::sql
