#include "base/screen_updates.h"

namespace {
bool held = false;
}

void holdScreenUpdates(bool hold) { held = hold; }

void updateWholeScreen(SDL_Surface* screen, int fullScreen) {
  if (held || !screen) return;
  if (fullScreen == 1) {
    SDL_Flip(screen);
  } else {
    SDL_UpdateRect(screen, 0, 0, 0, 0);
  }
}
