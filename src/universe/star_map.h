#pragma once
#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

#include "universe/planet.h"

constexpr int starMapSize = 500;
constexpr int maxPlanets = 10;
constexpr int starClassCount = 10;
constexpr int colorTableCount = 8;

struct ViewNode;

struct StellarObject {
  int x = 0;
  int y = 0;
  char Class[20] = {};
  char Eco[12] = {};
  int NumOfPlanets = 0;
  Planet* Planets[maxPlanets] = {};
};

struct StarMapCell {
  ViewNode* viewList = nullptr;
  StellarObject* object = nullptr;
};

// Indexed [x][y]: column first, then row.
using StarMap = StarMapCell[starMapSize][starMapSize];
extern StarMap starMap;

// The ten class texts in the order of the class counts: M K G F A B O, then
// the white dwarf (spelt as the data files spell it), neutron star, black hole.
extern const char* const starClassNames[starClassCount];

extern std::uint32_t planetColorTables[colorTableCount][256];
extern const char* const colorTableNames[colorTableCount];

// What the last load counted; the loader also logs it.
struct StarMapCounts {
  int totalStars = 0;
  int totalPlanets = 0;
  int classCounts[starClassCount] = {};
};
extern StarMapCounts starMapCounts;

// Loads "Starmap.txt", the star images and "PlanetColor.txt".
void loadStarmap(StarMap& map);
// The three steps of loadStarmap, each usable on its own.
void loadStarmapFile(StarMap& map, const char* path);
void loadStarImages();
void loadPlanetColors(const char* path);

// A cell of the star map by column and row.
struct StarMapPosition {
  int x = 0;
  int y = 0;
};
class DataFile;
// The star map records of an open file read into a map that holds none of
// them yet (loadStarmapFile empties the whole map first), counted into
// starMapCounts; problems are reported against `name`. Returns every cell it
// put an object in, so a caller reading text after text can empty just those.
std::vector<StarMapPosition> readStarmap(StarMap& map, DataFile& file, const std::string& name);
// Releases the objects in the given cells and empties them; the rest of the map stays.
void clearStarMapCells(StarMap& map, const std::vector<StarMapPosition>& cells);
// The colour tables emptied, then filled from an open file; problems name `name`.
void readPlanetColors(DataFile& file, const std::string& name);
// Releases every object and planet of the map and empties its cells and view lists.
void clearStarMap(StarMap& map);

SDL_Surface* starImage(const char* classText);
SDL_Surface* smallStarImage(const char* classText);
std::uint32_t planetColor(std::uint8_t shade, const char* name);

// The planet the ship orbits or stands on: slot currentPlanet of currentObject,
// or null when there is no object or the slot is empty or out of range.
Planet* currentPlanetRecord();
