#pragma once
#include <SDL.h>

struct StellarObject;
struct Terrain;

extern int globeRotation;

SDL_Surface* renderGlobe(const Terrain& map, int rotation, const char* sphereName);
void drawSurfaceGlobe(SDL_Surface* screen, const char* hydro);
void buildGlobeImages();
void buildOrbitAngles();
void buildPlanetImages(StellarObject* object);
void releasePlanetImages(StellarObject* object);
