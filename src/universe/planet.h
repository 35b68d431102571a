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

const char* mineralName(std::uint8_t number);
int mineralNumber(const char* name);
Uint32 mineralColor(std::uint8_t number, Uint8 alpha);
int generateMineralDeposits(MineralDepositList& deposits, const Planet* planet);
void freeMineralDeposits(MineralDepositList& deposits);
