#pragma once
#include <cstdio>

// The data checker for modders. Loads every data file of the data directory
// (the current directory) through the game's own loaders, without opening a
// window: the star map and colour tables, the star images, the saved game, the
// ship and component files it names, the ship, rover, blueprint and button
// images and the font, and the player's voyage when there is one. Prints each problem the loaders report as
// "FILE:LINE: what" (or "FILE: what" when it concerns the whole file) and then
// one summary line naming `dataDir`, all to `out`. Returns 0 when nothing was
// reported and 1 otherwise.
int checkData(const char* dataDir, std::FILE* out);
