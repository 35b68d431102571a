#pragma once
#include <functional>
#include <string>

struct Ship;

// Reads a saved game into the game state and the ship. Returns false, having
// changed nothing, when the file cannot be opened.
bool loadGame(const char* path);
// What loadGame does with the open file: `name` in reports, and the ship that
// the first line names loaded by `loadShipNamed` (loadGame loads its file and
// images), so a caller can supply ships it already has.
using ShipLoader = std::function<void(Ship& ship, const char* stem)>;
class DataFile;
void readSavedGame(DataFile& file, const std::string& name, const ShipLoader& loadShipNamed);
void restoreSavedMode();
// Reports, against the saved game's own lines, a saved system or planet that
// the loaded star map does not have (restoreSavedMode falls back to Space for
// them). Call after loadGame and loadStarmap; changes nothing.
void checkSavedPlace();
// The ship file stem that the last saved game read named on its first line
// ("" when it had none); the writer needs it, since a ship file may name its
// class differently.
const char* savedShipStem();
