#include "ui/frames.h"

#include <SDL_gfxPrimitives.h>

namespace {

// Ring i of n is drawn with alpha 255 - i * (255 / n): ring 0 opaque, each
// further ring fainter. Zero rings draw nothing.
Uint8 ringAlpha(int i, int n) { return static_cast<Uint8>(255 - i * (255 / n)); }

Sint16 at(int v) { return static_cast<Sint16>(v); }

}  // namespace

void drawFadingFrame(SDL_Surface* surface, Sint16 x1, Sint16 y1, Sint16 x2, Sint16 y2, Uint8 r, Uint8 g, Uint8 b,
                     Uint8 n) {
  if (!surface || n == 0) return;
  for (int i = 0; i < n; ++i) {
    const Uint8 a = ringAlpha(i, n);
    // The vertical sides own the corners, so no pixel of a ring is blended twice.
    hlineRGBA(surface, at(x1 + i + 1), at(x2 - 1 - i), at(y1 + i), r, g, b, a);
    hlineRGBA(surface, at(x1 + i + 1), at(x2 - 1 - i), at(y2 - i), r, g, b, a);
    vlineRGBA(surface, at(x1 + i), at(y1 + i), at(y2 - i), r, g, b, a);
    vlineRGBA(surface, at(x2 - i), at(y1 + i), at(y2 - i), r, g, b, a);
  }
}

void drawGlowFrame(SDL_Surface* surface, Sint16 x1, Sint16 y1, Sint16 x2, Sint16 y2, Uint8 r, Uint8 g, Uint8 b,
                   Uint8 n) {
  if (!surface || n == 0) return;
  for (int i = 0; i < n; ++i) {
    const Uint8 a = ringAlpha(i, n);
    hlineRGBA(surface, at(x1 + 1 + i), at(x2 - 1 - i), at(y1 + i), r, g, b, a);
    hlineRGBA(surface, at(x1 + 1 - i), at(x2 - 1 + i), at(y1 - i), r, g, b, a);
    hlineRGBA(surface, at(x1 + 1 + i), at(x2 - 1 - i), at(y2 - i), r, g, b, a);
    hlineRGBA(surface, at(x1 + 1 - i), at(x2 - 1 + i), at(y2 + i), r, g, b, a);
    vlineRGBA(surface, at(x1 + i), at(y1 + i), at(y2 - i), r, g, b, a);
    vlineRGBA(surface, at(x1 - i), at(y1 - i), at(y2 + i), r, g, b, a);
    vlineRGBA(surface, at(x2 - i), at(y1 + i), at(y2 - i), r, g, b, a);
    vlineRGBA(surface, at(x2 + i), at(y1 - i), at(y2 + i), r, g, b, a);
  }
}

void drawGlowLine(SDL_Surface* surface, Sint16 x1, Sint16 y1, Sint16 x2, Sint16 y2, Uint8 r, Uint8 g, Uint8 b,
                  Uint8 n) {
  if (!surface || n == 0) return;
  if (x1 == x2) {
    vlineRGBA(surface, x1, y1, y2, r, g, b, 255);
    for (int i = 0; i < n; ++i) {
      const Uint8 a = ringAlpha(i, n);
      vlineRGBA(surface, at(x1 + i), y1, y2, r, g, b, a);
      vlineRGBA(surface, at(x1 - i), y1, y2, r, g, b, a);
    }
  } else if (y1 == y2) {
    hlineRGBA(surface, x1, x2, y1, r, g, b, 255);
    for (int i = 0; i < n; ++i) {
      const Uint8 a = ringAlpha(i, n);
      hlineRGBA(surface, x1, x2, at(y1 + i), r, g, b, a);
      hlineRGBA(surface, x1, x2, at(y1 - i), r, g, b, a);
    }
  }
  // A slanted line has no glow: nothing is drawn.
}
