#pragma once
#include <string>

struct Options;

// The player's voyage: the game as it stands, kept between runs in a file of
// the saved-game format, by default $XDG_DATA_HOME/prospector/voyage.sav
// (~/.local/share/prospector/voyage.sav without that variable), never in the
// data directory and never NewGame.sav.

// Decides from the command line and the environment whether this run keeps a
// voyage and where: runs driven by --script or --frames keep none unless
// --voyage FILE names one, so tests and tools never touch a player's file.
// Call before changing into the data directory: a relative FILE is taken from
// where the game was started.
void chooseVoyage(const Options& options);

// The voyage file that --check looks at as well: the one --voyage names, or
// the player's when it exists; "" for none.
std::string voyageToCheck();

// Loads the game that start-up continues from. Without a kept voyage (or with
// --new) that is `newGamePath`. Otherwise the voyage file; a voyage the loader
// finds faults in is renamed to FILE.broken and the backup FILE.bak is tried,
// then `newGamePath`. Every step is said in the message strip and the debug
// log, ending in "Voyage continued" or "New voyage". The voyage is written
// again at every exit (exit handler) from then on.
void startVoyage(const char* newGamePath);

// End of a frame, after the screen is presented: writes the voyage when
// something it holds besides the position changed (a mode, the planet, the
// holds, the ship's parts) and the autosave interval has passed since the last
// write. Does nothing in runs that keep no voyage.
void autosaveVoyage();

// Writes the voyage at once, atomically: a temporary file in the same
// directory, flushed and synced, then renamed over the voyage, the previous
// voyage kept as FILE.bak. On failure the old voyage is left as it was and the
// reason is logged (and, unless `quiet`, shown once in the message strip).
// Returns whether the voyage is on disk. `quiet` is for exit paths, where the
// screen may no longer be shown.
bool saveVoyage(bool quiet);
