#include "fuzz/patched_file.h"

#include <utility>

#include "fuzz/jet3_file.h"
#include "jet/worn_database.h"

namespace jet::fuzz {
namespace {

struct SoundFile {
  SoundFile(Content file, const Format& format)
      : content(std::move(file)), places(structuralPlaces(content, format)), pageSize(format.pageSize) {}
  Content content;
  std::vector<Place> places;
  std::size_t pageSize;
};

const SoundFile& soundFile(Base base) {
  static const SoundFile worn(test::makeWornDatabase().file, jet4), old(makeJet3File(), jet3);
  return base == Base::Worn ? worn : old;
}

}  // namespace

MemoryFiles& patchedFile(Base base, InputReader& input) {
  static MemoryFiles files;
  static Content& file = files.put(fileName, {}).content;
  const SoundFile& sound = soundFile(base);
  file = sound.content;  // keeps its memory: a new one for each input would cost more than all the rest
  applyPatches(input, sound.places, sound.pageSize, file);
  return files;
}

}  // namespace jet::fuzz
