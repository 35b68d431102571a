#include "platform/window_identity.h"

#include <SDL.h>
#include <SDL_image.h>
#include <unistd.h>

#include <cstdio>

void nameWindow(const char* iconPath) {
  SDL_WM_SetCaption("Star Prospector", "Star Prospector");
  if (access(iconPath, F_OK) != 0) return;
  SDL_Surface* icon = IMG_Load(iconPath);
  if (!icon) {
    std::fprintf(stderr, "prospector: can't read the window icon %s: %s\n", iconPath, IMG_GetError());
    return;
  }
  SDL_WM_SetIcon(icon, nullptr);
  SDL_FreeSurface(icon);
}
