#pragma once
#include <SDL.h>

#include <cstdint>
#include <vector>

#include "base/mineral_deposit.h"

constexpr int mineralCount = 22;

struct Planet {
  int OrbitAngle = 0;
  float Mass = 0.0f;
  int MassExponent = 0;
  float Gravity = 0.0f;
  int MinTemp = 0;
  int MaxTemp = 0;
  int Bio = 0;
  int MineralDensity = 0;
  char Atmos[3][20] = {};
  char Hydro[20] = {};
  char Litho[3][20] = {};
  char Weather[16] = {};
  int Seed = 0;
  SDL_Surface* ViewImage = nullptr;
  SDL_Surface* OrbitImage = nullptr;
};

struct Mineral {
  const char* name;
  Uint8 r, g, b;
};
extern const Mineral minerals[mineralCount];

// The name of a mineral number; "Unknown" above 21.
const char* mineralName(std::uint8_t number);
// The number of a mineral name by exact comparison; 0 (lead) for any other text.
int mineralNumber(const char* name);
// The mineral's colour as 0xRRGGBBAA for the drawing library; opaque white above 21.
Uint32 mineralColor(std::uint8_t number, Uint8 alpha);
// Appends the planet's deposits, column by column, and returns how many: a point
// carries one when rand() mod 10,000 is at most MineralDensity. Re-seeds the one
// random generator with the planet's Seed, so a planet always gets the same
// deposits whatever was drawn before. A null planet gives none.
int generateMineralDeposits(MineralDepositList& deposits, const Planet* planet);
// Releases every deposit; the list is empty and can be filled again.
void freeMineralDeposits(MineralDepositList& deposits);
