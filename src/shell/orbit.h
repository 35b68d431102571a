#pragma once

struct Planet;
struct StellarObject;

// Sets the game up around planet `lane` of `object`, whether the ship was just
// captured or a saved game starts in orbit or on the surface: the terrain and
// deposits from the planet's seed, the sweep reset, the surface map, legend and
// planet labels drawn, the analysis lines reset. Leaves `mode` alone; the
// caller decides between Orbit and Surface.
void establishOrbit(StellarObject* object, int lane, Planet* planet);
// Puts the ship two cells past the planet it orbits on both axes.
void leaveOrbit();
