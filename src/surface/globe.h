#pragma once
#include <SDL.h>

struct StellarObject;
struct Terrain;

constexpr int globeImageCount = 20;

// The turn of the orbited planet's globe, 0 to 359.
extern int globeRotation;
// The wire-frame globe turned step by step, made once at start-up for the status window.
extern SDL_Surface* globeImages[globeImageCount];
// A permutation of 0 to 359 that planets take their orbit angles from, and the
// next place in it (never reset, so successive systems get successive angles).
extern int orbitAngles[360];
extern int angleCursor;

SDL_Surface* renderGlobe(const Terrain& map, int rotation, const char* sphereName);
void drawSurfaceGlobe(SDL_Surface* screen, const char* hydro);
void buildGlobeImages();
void buildOrbitAngles();
void buildPlanetImages(StellarObject* object);
void releasePlanetImages(StellarObject* object);
