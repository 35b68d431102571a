#include "platform/random.h"

#include <ctime>
#include <optional>

namespace {
RandomSequence sequence(1);
std::optional<unsigned int> fixedTimeSeed;
}  // namespace

void seedRandom(unsigned int seed) { sequence = RandomSequence(seed); }

int nextRandom() { return sequence.next(); }

unsigned int randomState() { return sequence.state(); }

void setRandomState(unsigned int state) { sequence = RandomSequence(state); }

unsigned int timeSeed() {
  if (fixedTimeSeed) return *fixedTimeSeed;
  return static_cast<unsigned int>(std::time(nullptr));
}

void setTimeSeedOverride(unsigned int seed) { fixedTimeSeed = seed; }
