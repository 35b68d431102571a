#include "surface/globe.h"

// Planet globes and images arrive with the planet surface.
int globeRotation = 0;
SDL_Surface* globeImages[globeImageCount] = {};
int orbitAngles[360] = {};
int angleCursor = 0;

SDL_Surface* renderGlobe(const Terrain&, int, const char*) { return nullptr; }
void drawSurfaceGlobe(SDL_Surface*, const char*) {}
void buildGlobeImages() {}
void buildOrbitAngles() {}
void buildPlanetImages(StellarObject*) {}
void releasePlanetImages(StellarObject*) {}
