#pragma once
#include <string>

struct Ship;
class DataFile;

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
// What the loaders above do with one file, for an open file in hand: the
// counted lines read into the record, a short file reported against
// `gamePath` (the file's game path, as ".\\Engines\\Kestrel.txt").
void readEngine(Engine& engine, DataFile& file, const std::string& gamePath);
void readShield(Shield& shield, DataFile& file, const std::string& gamePath);
void readPowerPlant(PowerPlant& powerPlant, DataFile& file, const std::string& gamePath);
void readWeapon(Weapon& weapon, DataFile& file, const std::string& gamePath);
// One frame of shield charging (shields online) or draining (offline).
void chargeShields(Ship& ship);
