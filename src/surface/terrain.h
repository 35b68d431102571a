#pragma once
#include <cstdint>
#include <vector>

class RandomSequence;

constexpr int terrainWidth = 360;
constexpr int terrainHeight = 180;

// One elevation byte per degree; cell (x, y) is element x * 180 + y.
struct Terrain {
  std::uint8_t cells[terrainWidth * terrainHeight] = {};
};

// The surface of the planet in orbit or landed on.
extern Terrain terrain;

// Fills every cell from the seed by diamond-square displacement of a 513 x 513
// height field, resampled to one cell per degree. Re-seeds the one random
// generator, so the same seed always gives the same surface and the sequence
// afterwards continues from the generation's own draws.
void generateTerrain(Terrain& map, std::int32_t seed);
// The same surface drawn from `random`, which it re-seeds and leaves after the
// generation's own draws; the program's one generator is not touched, so this
// may run on another thread.
void generateTerrain(Terrain& map, std::int32_t seed, RandomSequence& random);
// The height field behind generateTerrain: 513 x 513 elevations, row by row
// (row * 513 + column); row 512 and column 512 repeat row 0 and column 0.
constexpr int heightFieldSize = 513;
std::vector<std::uint8_t> heightField(std::int32_t seed);
std::vector<std::uint8_t> heightField(std::int32_t seed, RandomSequence& random);
// Smooths the map in place with the 7 x 7 kernel (sum 140); both longitude and
// latitude wrap, and cells already smoothed feed the later ones.
void smoothTerrain(Terrain& map);
// A displacement in -(m / 2) .. m / 2 from one random draw; 0 without a draw for m <= 0.
int randomOffset(int m);
// v limited to 0..255.
int clampByte(int v);
