#pragma once

// Reads a saved game into the game state and the ship. Returns false, having
// changed nothing, when the file cannot be opened.
bool loadGame(const char* path);
void restoreSavedMode();
