#include "ui/font_builder.h"

#include <SDL_ttf.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "support/test_support.h"

TEST(FontBuilder, EveryFontHoldsTheGlyphsInItsSizeStyleAndColour) {
  ensureScreen();
  ASSERT_EQ(TTF_Init(), 0);
  for (int i = 0; i < fontCount; ++i) {
    const BitmapFont* font = fontTable.fonts[i];
    ASSERT_TRUE(font && font->sheet->format->BitsPerPixel == 8) << i;
    const Uint8* shades = static_cast<const Uint8*>(font->sheet->pixels);
    TTF_Font* ttf = TTF_OpenFont(gameFontPath, fontLooks[i].size);
    TTF_SetFontStyle(ttf, fontLooks[i].style);
    // One run per character between separators, as wide as SDL_ttf renders it: 95 separators in all.
    int width = 95;
    for (int c = 33; c <= 126; ++c) {
      int w = 0;
      TTF_SizeText(ttf, std::string(1, fontCharacterSet[c - 33]).c_str(), &w, nullptr);
      EXPECT_EQ(font->glyphs[c].w, w) << i << ": " << c;
      width += w;
    }
    TTF_CloseFont(ttf);
    EXPECT_EQ(font->sheet->w, width) << i;
    EXPECT_EQ(shades[font->sheet->w - 1], 2) << i;
    // Shades run from black to the entry's colour, and the glyphs are drawn in them.
    const SDL_Color& top = font->sheet->format->palette->colors[255];
    EXPECT_EQ((top.r << 16) | (top.g << 8) | top.b, (fontLooks[i].r << 16) | (fontLooks[i].g << 8) | fontLooks[i].b);
    EXPECT_GE(*std::max_element(shades, shades + font->sheet->pitch * font->sheet->h), 128) << i;
    const SDL_Rect &quote = font->glyphs['\''], &grave = font->glyphs['`'];  // the grave drawn as an apostrophe
    ASSERT_TRUE(quote.w == grave.w && quote.x != grave.x) << i;
    for (const Uint8* row = shades; row < shades + font->sheet->pitch * font->sheet->h; row += font->sheet->pitch) {
      EXPECT_EQ(std::memcmp(row + quote.x, row + grave.x, quote.w), 0) << i;
    }
  }
  TTF_Quit();
}

TEST(FontBuilder, MissingFontFileLeavesTheEntriesEmpty) {
  ensureScreen();
  const FontTable saved = fontTable;
  BitmapFont* savedCurrent = currentFont();
  const std::filesystem::path home = std::filesystem::current_path();
  TempDir empty;
  std::filesystem::current_path(empty.dir());
  testing::internal::CaptureStderr();
  buildFonts();
  const std::string err = testing::internal::GetCapturedStderr();
  std::filesystem::current_path(home);
  for (int i = 0; i < fontCount; ++i) EXPECT_TRUE(!fontTable.fonts[i] && !fontTable.heights[i]) << i;
  EXPECT_EQ(err.rfind("Error: couldn't load 10 pt font from ATX_A.ttf: ", 0), 0u) << err;
  EXPECT_EQ(currentFont(), savedCurrent);
  fontTable = saved;
}
