#pragma once
#include <cstdint>
#include <vector>

// One deposit of the planet in orbit or landed on: its surface cell, its
// mineral number and the CU left in it. Generated from the planet's seed.
struct MineralDeposit {
  int x = 0;
  int y = 0;
  std::uint8_t kind = 0;
  float amount = 0.0f;
};
using MineralDepositList = std::vector<MineralDeposit>;
