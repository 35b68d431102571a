#pragma once
#include <SDL.h>

#include <memory>

// Owns an SDL surface and frees it when it goes out of scope; for temporary
// surfaces a frame or a test makes and must not leak.
struct SurfaceFree {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceFree>;
