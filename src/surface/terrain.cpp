#include "surface/terrain.h"

// Terrain generation arrives with the planet surface; until then a planet's
// terrain stays flat at elevation 0.
Terrain terrain;

void generateTerrain(Terrain&, std::int32_t) {}
void smoothTerrain(Terrain&) {}
int randomOffset(int) { return 0; }
int clampByte(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }
