#pragma once
#include <string>

struct Ship;

struct Engine {
  char name[100] = {};
  std::string description;
  int engineClass = 0;
  int warpCurrent = 0;
};

struct Shield {
  char name[100] = {};
  std::string description;
  int shieldClass = 0;
  int shieldMax = 0;
  int shieldCurrent = 0;
};

struct PowerPlant {
  char name[100] = {};
  std::string description;
  int powerPlantClass = 0;
};

struct Weapon {
  char weaponType[100] = {};
  std::string description;
  int energyOutput = 0;
};

void loadEngine(Ship& ship);
void loadShield(Ship& ship);
void loadPowerPlant(Ship& ship);
void loadWeapons(Ship& ship);
// One frame of shield charging (shields online) or draining (offline).
void chargeShields(Ship& ship);
