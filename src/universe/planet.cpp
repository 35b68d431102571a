#include "universe/planet.h"

#include <cstring>

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

int generateMineralDeposits(MineralDepositList&, const Planet*) { return 0; }
void freeMineralDeposits(MineralDepositList& d) { d.clear(); }
