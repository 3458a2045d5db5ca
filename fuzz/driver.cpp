// One fuzzing program: libFuzzer calls the target whose name it was compiled with.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/targets.h"

namespace {

const jet::fuzz::Target& target() {
  for (const jet::fuzz::Target& each : jet::fuzz::targets()) {
    if (each.name == FUZZ_TARGET) return each;
  }
  std::fputs("no such target: " FUZZ_TARGET "\n", stderr);
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const jet::fuzz::Target& chosen = target();
  chosen.run({data, size});
  return 0;
}
