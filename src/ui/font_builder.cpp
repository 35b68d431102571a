#include "ui/font_builder.h"

#include <SDL_ttf.h>

#include <cstdio>
#include <cstring>
#include <memory>

FontTable fontTable;

// Code 96 is rendered as an apostrophe: the game never shows a grave accent.
const char fontCharacterSet[] =
    "!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_'abcdefghijklmnopqrstuvwxyz{|}~";

const char gameFontPath[] = "ATX_A.ttf";

const FontLook fontLooks[fontCount] = {
    {10, 0, 255, 255, 255},  // message strip, navigation window
    {10, 0, 0, 255, 0},      // mass exponent of the planet readings
    {12, 0, 255, 255, 255},  // ordinary text
    {12, 1, 255, 255, 255},  // surface map
    {12, 0, 0, 255, 0},      // "OFFLINE", reading values
    {12, 0, 255, 0, 0},      // "ONLINE"
    {12, 0, 128, 128, 255},  // ship configuration values, navigation window
    {14, 0, 255, 255, 255},  // cargo mineral names
    {14, 1, 255, 255, 255},  //
    {16, 0, 255, 255, 255},  //
    {16, 1, 255, 255, 255},  // ship configuration panel titles
    {16, 1, 0, 255, 0},      // cargo window, ship name heading
    {16, 1, 255, 0, 0},      // text button labels
    {20, 0, 255, 255, 255},  // command window: current item
    {20, 0, 128, 128, 128},  // command window: other items
    {20, 3, 0, 255, 0},      // "Cargo List"
    {20, 3, 196, 196, 255},  // "Ship Configuration"
};

namespace {

constexpr int glyphCount = sizeof fontCharacterSet - 1;
static_assert(glyphCount == 94);

// Index 2 of every sheet's palette marks the columns between glyphs.
constexpr Uint8 separatorIndex = 2;

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

void setSeparator(SDL_Surface* sheet, int x) {
  if (x < 0 || x >= sheet->w) return;
  static_cast<Uint8*>(sheet->pixels)[x] = separatorIndex;
}

}  // namespace

SDL_Surface* buildFontSheet(const char* path, int style, int size, Uint8 r, Uint8 g, Uint8 b) {
  if (TTF_Init() < 0) {
    std::fprintf(stderr, "Error: couldn't initialize TTF: %s\n", SDL_GetError());
    return nullptr;
  }
  TTF_Font* font = TTF_OpenFont(path, size);
  if (!font) {
    // SDL_ttf stays initialised here, as it always has.
    std::fprintf(stderr, "Error: couldn't load %d pt font from %s: %s\n", size, path, SDL_GetError());
    return nullptr;
  }
  TTF_SetFontStyle(font, style);

  const SDL_Color foreground{r, g, b, 0};
  const SDL_Color background{0, 0, 0, 0};
  SurfacePtr renderings[glyphCount];
  for (int i = 0; i < glyphCount; ++i) {
    const char text[2] = {fontCharacterSet[i], '\0'};
    renderings[i].reset(TTF_RenderText_Shaded(font, text, foreground, background));
    if (!renderings[i]) {
      for (SurfacePtr& made : renderings) made.reset();
      TTF_CloseFont(font);
      TTF_Quit();
      std::fprintf(stderr, "Error: couldn't render the charset: %s\n", SDL_GetError());
      return nullptr;
    }
  }
  TTF_CloseFont(font);
  TTF_Quit();

  int width = 1;
  for (const SurfacePtr& glyph : renderings) width += glyph->w + 1;
  const int height = renderings[0]->h;
  SDL_Surface* sheet = SDL_CreateRGBSurface(SDL_SWSURFACE, width, height, 8, 0, 0, 0, 0);
  if (!sheet) {
    std::fprintf(stderr, "Error: couldn't render the charset: %s\n", SDL_GetError());
    return nullptr;
  }
  if (const SDL_Palette* shades = renderings[0]->format->palette) {
    SDL_SetColors(sheet, shades->colors, 0, shades->ncolors);
  }
  SDL_Color fixed[3] = {{0, 0, 0, 0}, {0, 0, 0, 0}, {255, 0, 255, 0}};
  SDL_SetColors(sheet, &fixed[0], 0, 1);
  SDL_SetColors(sheet, &fixed[2], separatorIndex, 1);
  SDL_FillRect(sheet, nullptr, 0);

  // Each glyph goes right after its separator; the blit maps the rendering's
  // shades onto the sheet's palette, so no glyph pixel becomes a separator.
  int x = 0;
  for (const SurfacePtr& glyph : renderings) {
    x += 1;
    SDL_Rect at{static_cast<Sint16>(x), 0, 0, 0};
    SDL_BlitSurface(glyph.get(), nullptr, sheet, &at);
    x += glyph->w;
  }
  if (SDL_LockSurface(sheet) == 0) {
    x = 0;
    for (const SurfacePtr& glyph : renderings) {
      setSeparator(sheet, x);
      x += 1 + glyph->w;
    }
    setSeparator(sheet, x);
    SDL_UnlockSurface(sheet);
  }
  return sheet;
}

FontTable* buildFonts() {
  for (int i = 0; i < fontCount; ++i) {
    const FontLook& look = fontLooks[i];
    SDL_Surface* sheet = buildFontSheet(gameFontPath, look.style, look.size, look.r, look.g, look.b);
    BitmapFont* font = fontFromSurface(sheet);
    fontTable.fonts[i] = font;
    fontTable.heights[i] = font ? fontHeight(font) : 0;
  }
  return &fontTable;
}
