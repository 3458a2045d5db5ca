#pragma once

#include <cstdint>

#include "common/memory_files.h"
#include "fuzz/patches.h"

namespace jet::fuzz {

inline constexpr const char* fileName = "fuzz.mdb";

enum class Base : std::uint8_t {
  Worn,  // the worn database of the tests
  Jet3,  // a small one in the older format
};

// A sound file with the rest of `input` applied to it, in memory; until the next call.
MemoryFiles& patchedFile(Base base, InputReader& input);

}  // namespace jet::fuzz
