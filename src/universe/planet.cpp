#include "universe/planet.h"

#include <array>
#include <cstring>

#include "platform/random.h"

const Mineral minerals[mineralCount] = {
    {"Lead", 246, 150, 121},     {"Iron", 158, 11, 14},        {"Cobalt", 242, 101, 34},    {"Nickel", 123, 46, 0},
    {"Copper", 255, 247, 153},   {"Zinc", 172, 211, 115},      {"Molybdenum", 25, 123, 48}, {"Tin", 0, 169, 157},
    {"Magnesium", 0, 116, 107},  {"Aluminum", 0, 91, 127},     {"Titanium", 0, 191, 243},   {"Chromium", 0, 52, 113},
    {"Antimony", 135, 129, 189}, {"Promethium", 102, 45, 145}, {"Mercury", 146, 39, 143},   {"Tungsten", 240, 110, 170},
    {"Silver", 230, 230, 230},   {"Gold", 254, 207, 44},       {"Platinum", 158, 0, 57},    {"Silicon", 140, 98, 57},
    {"Rodnium", 129, 129, 129},  {"Shyneum", 32, 32, 32},
};

const char* mineralName(std::uint8_t number) { return number < mineralCount ? minerals[number].name : "Unknown"; }

int mineralNumber(const char* name) {
  if (!name) return 0;
  for (int i = 0; i < mineralCount; ++i) {
    if (std::strcmp(minerals[i].name, name) == 0) return i;
  }
  // A lithosphere text that names no mineral counts as lead.
  return 0;
}

Uint32 mineralColor(std::uint8_t number, Uint8 alpha) {
  if (number >= mineralCount) return 0xFFFFFFFFu;
  const Mineral& m = minerals[number];
  return (Uint32(m.r) << 24) | (Uint32(m.g) << 16) | (Uint32(m.b) << 8) | alpha;
}

namespace {

constexpr int surfaceColumns = 360;
constexpr int surfaceRows = 180;
constexpr int kindTableSize = 100;

// Every mineral three times, then the lithosphere weighted 6, 11 and 17 entries
// for its third, second and first mineral.
std::array<std::uint8_t, kindTableSize> depositKinds(const Planet& planet) {
  std::array<std::uint8_t, kindTableSize> kinds{};
  for (int i = 0; i < kindTableSize; ++i) {
    int litho = -1;
    if (i >= 83) {
      litho = 0;
    } else if (i >= 72) {
      litho = 1;
    } else if (i >= 66) {
      litho = 2;
    }
    kinds[static_cast<std::size_t>(i)] =
        static_cast<std::uint8_t>(litho < 0 ? i % mineralCount : mineralNumber(planet.Litho[litho]));
  }
  return kinds;
}

}  // namespace

int generateMineralDeposits(MineralDepositList& deposits, const Planet* planet) {
  if (!planet) return 0;
  const std::array<std::uint8_t, kindTableSize> kinds = depositKinds(*planet);
  seedRandom(static_cast<unsigned int>(planet->Seed));
  int count = 0;
  for (int x = 0; x < surfaceColumns; ++x) {
    for (int y = 0; y < surfaceRows; ++y) {
      if (nextRandom() % 10000 > planet->MineralDensity) continue;
      MineralDeposit d;
      d.x = x;
      d.y = y;
      d.kind = kinds[static_cast<std::size_t>(nextRandom() % kindTableSize)];
      d.amount = static_cast<float>((nextRandom() % 1000) / 100.0);
      deposits.push_back(d);
      ++count;
    }
  }
  return count;
}

void freeMineralDeposits(MineralDepositList& deposits) { MineralDepositList().swap(deposits); }
