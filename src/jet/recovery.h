#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

namespace jet {

// What became of a journal that was found at opening.
enum class Recovery : std::uint8_t {
  None,        // there was no journal, or none that had begun to count; a left-over one is removed
  RolledBack,  // the database is as it was before the transaction
  SetAside,    // the journal does not fit the database as it is now: kept under another name, never applied
};

struct RecoveryResult {
  Recovery what = Recovery::None;
  std::filesystem::path keptAs;  // SetAside
};

// Is told of every result but None, once.
using RecoverySink = std::function<void(const RecoveryResult&)>;

}  // namespace jet
