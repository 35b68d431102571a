// Start-up renders all 17 fonts before the first window appears, and every
// window prints text each frame: both must stay cheap.
#include <SDL.h>
#include <benchmark/benchmark.h>

#include <string>

#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

void BM_BuildAllFonts(benchmark::State& state) {
  BitmapFont* before = currentFont();
  for (auto _ : state) {
    BitmapFont* fonts[fontCount] = {};
    for (int i = 0; i < fontCount; ++i) {
      const FontLook& look = fontLooks[i];
      fonts[i] = fontFromSurface(buildFontSheet(gameFontPath, look.style, look.size, look.r, look.g, look.b));
      if (!fonts[i]) {
        state.SkipWithError("the game font could not be built (is ATX_A.ttf in the data directory?)");
        break;
      }
    }
    benchmark::DoNotOptimize(fonts);
    state.PauseTiming();
    setCurrentFont(before);
    for (BitmapFont* font : fonts) freeFont(font);
    state.ResumeTiming();
  }
}
BENCHMARK(BM_BuildAllFonts)->Unit(benchmark::kMillisecond);

void BM_DrawLineOf100Characters(benchmark::State& state) {
  BitmapFont* before = currentFont();
  const FontLook& look = fontLooks[2];
  BitmapFont* font = fontFromSurface(buildFontSheet(gameFontPath, look.style, look.size, look.r, look.g, look.b));
  setCurrentFont(before);
  SDL_Surface* target = SDL_CreateRGBSurface(SDL_SWSURFACE, 800, 600, 32, 0xFF0000, 0x00FF00, 0x0000FF, 0);
  if (!font || !target) {
    state.SkipWithError("no font or no surface to draw on");
  } else {
    std::string line;
    for (int i = 0; i < 100; ++i) line += static_cast<char>('!' + i % 94);
    for (auto _ : state) {
      putString(target, font, 0, 300, line.c_str());
      benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 100);
  }
  SDL_FreeSurface(target);
  freeFont(font);
}
BENCHMARK(BM_DrawLineOf100Characters)->Unit(benchmark::kMicrosecond);

}  // namespace
