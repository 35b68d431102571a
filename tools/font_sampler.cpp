// Prints one line in each of the game's 17 fonts onto a black page and saves
// it as a BMP, to check by eye that every font is legible in its size, style
// and colour. Run it in a data directory (it needs ATX_A.ttf):
//   font_sampler sample.bmp
#include <SDL.h>

#include <cstdio>
#include <cstdlib>

#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

const char* styleName(int style) {
  switch (style) {
    case 0:
      return "plain";
    case 1:
      return "bold";
    case 3:
      return "bold italic";
    default:
      return "style?";
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: font_sampler OUTPUT.bmp  (run in the game's data directory)\n");
    return 2;
  }
  setenv("SDL_VIDEODRIVER", "dummy", 0);
  if (SDL_Init(SDL_INIT_VIDEO) < 0) {
    std::fprintf(stderr, "font_sampler: couldn't initialize SDL: %s\n", SDL_GetError());
    return 1;
  }
  std::atexit(SDL_Quit);
  FontTable* fonts = buildFonts();
  int missing = 0;
  int height = 10;
  for (int i = 0; i < fontCount; ++i) {
    if (!fonts->fonts[i]) ++missing;
    height += fonts->heights[i] + 4;
  }
  if (missing == fontCount) {
    std::fprintf(stderr, "font_sampler: no font could be built; is %s in the working directory?\n", gameFontPath);
    return 1;
  }
  SDL_Surface* page = SDL_CreateRGBSurface(SDL_SWSURFACE, 1300, height, 32, 0, 0, 0, 0);
  if (!page) {
    std::fprintf(stderr, "font_sampler: couldn't make the page: %s\n", SDL_GetError());
    return 1;
  }
  SDL_FillRect(page, nullptr, SDL_MapRGB(page->format, 0, 0, 0));
  int y = 5;
  for (int i = 0; i < fontCount; ++i) {
    const FontLook& look = fontLooks[i];
    if (fonts->fonts[i]) {
      printString(page, fonts->fonts[i], 5, y, "Entry %d: %d pt %s The quick brown fox 0123456789 `'\"", i, look.size,
                  styleName(look.style));
    }
    y += fonts->heights[i] + 4;
  }
  const int status = SDL_SaveBMP(page, argv[1]) == 0 ? 0 : 1;
  if (status != 0) std::fprintf(stderr, "font_sampler: couldn't write %s: %s\n", argv[1], SDL_GetError());
  SDL_FreeSurface(page);
  for (BitmapFont*& font : fonts->fonts) {
    freeFont(font);
    font = nullptr;
  }
  return missing ? 1 : status;
}
