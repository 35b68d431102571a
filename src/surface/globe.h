#pragma once
#include <SDL.h>

struct StellarObject;
struct Terrain;

constexpr int globeImageCount = 20;
constexpr int globeSize = 180;

// The turn of the orbited planet's globe, 0 to 359.
extern int globeRotation;
// The wire-frame globe turned step by step, made once at start-up for the status window.
extern SDL_Surface* globeImages[globeImageCount];
// A permutation of 0 to 359 that planets take their orbit angles from, and the
// next place in it (never reset, so successive systems get successive angles).
extern int orbitAngles[360];
extern int angleCursor;
// The terrain of the wire-frame globe: 18 meridians and 12 parallels at 255.
extern Terrain wireGrid;

// A new 180 x 180 surface (the caller frees it) showing one hemisphere of the
// terrain, coloured with planetColor(elevation, sphereName); pixels outside the
// disc and all of row 0 stay black. Rotations 2k and 2k + 1 look the same; each
// step of two turns the globe by two degrees of longitude. Null if no surface
// could be made.
SDL_Surface* renderGlobe(const Terrain& map, int rotation, const char* sphereName);
// Draws the orbited planet's globe (the global terrain) at (50, 315) and turns
// it one step for the next frame.
void drawSurfaceGlobe(SDL_Surface* screen, const char* hydro);
// Makes the 20 wire-frame globe images, replacing any made before.
void buildGlobeImages();
// Shuffles orbitAngles with 36,000 swaps after seeding with the time (fixed by --seed).
void buildOrbitAngles();
// Gives every planet of the system its orbit angle, view image and orbit icon,
// says "Planet detected at lane: %d" for each, and restarts the orbit view's
// pulse. The cursor into orbitAngles moves on for empty lanes too. Images made
// before for the same planets are released first.
void buildPlanetImages(StellarObject* object);
// Starts making the terrains of the planets of every system within two cells
// of the star-map cell (x, y), nearest first, on the worker thread, so that
// flying into one finds them made and its entry frame stays short.
void prepareSystemsNear(int cellX, int cellY);
// Frees every planet's view image and orbit icon and clears the pointers.
void releasePlanetImages(StellarObject* object);
