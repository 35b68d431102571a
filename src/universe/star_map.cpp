#include "universe/star_map.h"
// placeholder
StarMap starMap;
const char* const starClassNames[starClassCount] = {
    "M", "K", "G", "F", "A", "B", "O", "White Drawf", "Neutron Star", "Black Hole"};
std::uint32_t planetColorTables[colorTableCount][256];
const char* const colorTableNames[colorTableCount] = {
    "Metalic Hydrogen", "Helium", "Methane", "Carbon Dioxide", "Water", "Molten Tin", "Molten Iron", "Lava"};
StarMapCounts starMapCounts;
void loadStarmap(StarMap&) {}
void loadStarmapFile(StarMap&, const char*) {}
void loadStarImages() {}
void loadPlanetColors(const char*) {}
void clearStarMap(StarMap&) {}
SDL_Surface* starImage(const char*) { return nullptr; }
SDL_Surface* smallStarImage(const char*) { return nullptr; }
std::uint32_t planetColor(std::uint8_t, const char*) { return 0; }
