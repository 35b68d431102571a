#pragma once

struct StellarObject;

// One frame of each game mode, run by the frame loop after input and the
// ship's velocity: each moves what its mode moves, changes mode when the
// rules say so, and draws the open overlay window or the mode's views.
void runSpaceFrame();
void runSystemFrame();
void runOrbitFrame();
void runSurfaceFrame();

// Releases a system's planet images when the ship leaves it: releasePlanetImages,
// unless a test counts the calls instead.
extern void (*releaseSystemImages)(StellarObject* object);
