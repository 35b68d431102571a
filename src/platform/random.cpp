#include "platform/random.h"

#include <ctime>
#include <optional>

namespace {
unsigned long long state = 1;  // kept modulo 2^32
std::optional<unsigned int> fixedTimeSeed;
}  // namespace

void seedRandom(unsigned int seed) { state = seed; }

int nextRandom() {
  state = (state * 1103515245ULL + 12345ULL) & 0xFFFFFFFFULL;
  return static_cast<int>((state / 65536ULL) % 32768ULL);
}

unsigned int timeSeed() {
  if (fixedTimeSeed) return *fixedTimeSeed;
  return static_cast<unsigned int>(std::time(nullptr));
}

void setTimeSeedOverride(unsigned int seed) { fixedTimeSeed = seed; }
