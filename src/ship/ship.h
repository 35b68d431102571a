#pragma once
#include <SDL.h>

#include <string>
#include <vector>

#include "ship/cargo.h"
#include "ship/components.h"

constexpr int maxHardPoints = 10;
constexpr int shipImageCount = 144;  // ship at 0..71, rover at 72..143
constexpr int roverImageBase = 72;

struct MarkerPoint {
  int x = 0;
  int y = 0;
};
// Marker points in the order of the file.
using MarkerList = std::vector<MarkerPoint>;

struct HardPoint {
  MarkerList markers;
  char weaponName[100] = {};
  Weapon weapon;
};

struct Ship {
  char shipClass[100] = {};
  char shipType[100] = {};
  char shipName[100] = {};
  std::string description;
  Engine engine;
  Shield shield;
  PowerPlant powerPlant;
  HardPoint hardPoints[maxHardPoints];
  int armorClass = 0;
  int armorMax = 0;
  int armorCurrent = 0;
  int hullMax = 0;
  int hullCurrent = 0;
  int fuel = 0;
  int cargoHoldCount = 0;
  int hardPointCount = 0;
  int shieldsOnline = 0;
  int weaponsOnline = 0;
  float roverFuel = 0.0f;
  float roverHoldFree = 0.0f;
  float shipHoldCapacity = 0.0f;
  float shipHoldFree = 0.0f;
  CargoHold shipHold = {};
  CargoHold roverHold = {};
  MarkerList engineMarkers;
  MarkerList shieldMarkers;
  MarkerList powerPlantMarkers;
};

extern Ship playerShip;
extern SDL_Surface* shipImages[shipImageCount];

void loadShip(SDL_Surface** images, Ship& ship, const char* stem);
