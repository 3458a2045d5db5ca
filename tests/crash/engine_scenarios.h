#pragma once

#include "crash/scenario.h"

namespace jet::test {

// All rows of all tables of a file; starts with "damaged" if the check of the file has errors.
std::string contentOf(const Bytes& database);

// Saves of rows, on a database with persons (autonumber, indexes over names and numbers, memo) and counters.
// Their content is all rows of all tables and what a check of the whole file finds.

Scenario oneInsert();
// Each person is two saves, as in a mail merge: the record, then the counter.
Scenario personsWithCounters(std::size_t persons);
// Names so long that the leaves of their index split again and again, then rows deleted until they empty.
Scenario indexSplits();
// Memos over many pages: added, replaced by shorter and longer ones, deleted.
Scenario longMemos();
// Several rows and new pages in every save.
Scenario fileGrowth();

std::vector<Scenario> engineScenarios();

}  // namespace jet::test
