#pragma once
#include <cstdint>
#include <vector>

struct Terrain;

// Smoothed terrains made ahead of need on a worker thread, by seed. Entering a
// system needs every planet's terrain within one frame; asking for them while
// the ship approaches lets that frame find them made. The worker draws from
// its own random sequence, never from the program's one generator.

// Queues the terrains of these seeds that are not made yet for the worker,
// ahead of those asked for before and in the order given; returns at once.
// The most recently asked-for terrains are kept.
void prepareTerrains(const std::vector<std::int32_t>& seeds);
// Fills `map` exactly as generateTerrain then smoothTerrain would, and leaves
// the program's random generator where generateTerrain leaves it. A terrain
// not made yet is made here; while the worker is busy with it, this thread
// makes queued ones meanwhile, so a cold start uses both cores.
void smoothedTerrain(Terrain& map, std::int32_t seed);
// Blocks until the worker has nothing queued or in hand.
void waitForTerrains();
// Drops every made terrain (queued work is still done).
void forgetTerrains();
