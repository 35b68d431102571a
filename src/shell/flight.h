#pragma once

struct StellarObject;

// Releases a system's planet images when the ship leaves it: releasePlanetImages,
// unless a test counts the calls instead.
extern void (*releaseSystemImages)(StellarObject* object);

void runSpaceFrame();
void runSystemFrame();
// The speed and heading controls (frame loop step 8, with maneuverOn).
void applyFlightControls();
// Puts the ship two cells past the planet it orbits on both axes.
void leaveOrbit();

// The system cell the ship enters at for a heading (0..355).
void systemEntryCell(int heading, int& ex, int& ey);
// The system cell of planet lane `lane` at an orbit angle.
void planetCell(int lane, int orbitAngle, int& px, int& py);
