#pragma once
#include <cstdint>

constexpr int terrainWidth = 360;
constexpr int terrainHeight = 180;

// One elevation byte per degree; cell (x, y) is element x * 180 + y.
struct Terrain {
  std::uint8_t cells[terrainWidth * terrainHeight] = {};
};

extern Terrain terrain;

void generateTerrain(Terrain& map, std::int32_t seed);
void smoothTerrain(Terrain& map);
int randomOffset(int m);
int clampByte(int v);
