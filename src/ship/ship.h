#pragma once
#include <SDL.h>

#include <string>
#include <string_view>
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

class DataFile;

extern Ship playerShip;
extern SDL_Surface* shipImages[shipImageCount];

void loadShip(SDL_Surface** images, Ship& ship, const char* stem);

// The text part of loadShip: reads a ship file (a host path) into the record
// and sets the state values that follow it. Returns false, leaving the record
// as it was, when the file cannot be opened.
bool readShipFile(Ship& ship, const std::string& path);
// The same for an open file; `path` names it in reports.
void readShipFile(Ship& ship, DataFile& file, const std::string& path);
// A marker line: x, y pairs split at any run of blanks, commas and tabs. An
// unpaired last coordinate is dropped; *dropped tells the caller about it.
MarkerList parseMarkerList(std::string_view line, bool* dropped = nullptr);
// The ship's hold capacity for a number of 50 CU holds, capped at 999.99.
float holdCapacity(int cargoHoldCount);
