#include "shell/saved_game.h"
// placeholder
bool loadGame(const char*) { return true; }
void restoreSavedMode() {}
