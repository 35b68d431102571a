#include <SDL_ttf.h>

#include "support/test_support.h"

TEST(FontBuilder, EveryFontHoldsTheGlyphsInItsSizeStyleAndColour) {
  ensureScreen();
  ASSERT_EQ(TTF_Init(), 0);
  // The sizes, styles (1 bold, 3 bold italic) and colours the player knows: white text, green readings, red labels...
  const int sizes[fontCount] = {10, 10, 12, 12, 12, 12, 12, 14, 14, 16, 16, 16, 16, 20, 20, 20, 20};
  const int styles[fontCount] = {0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 1, 1, 0, 0, 3, 3};
  const Uint32 colours[fontCount] = {0xFFFFFF, 0x00FF00, 0xFFFFFF, 0xFFFFFF, 0x00FF00, 0xFF0000,
                                     0x8080FF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x00FF00,
                                     0xFF0000, 0xFFFFFF, 0x808080, 0x00FF00, 0xC4C4FF};
  for (int i = 0; i < fontCount; ++i) {
    const BitmapFont* font = fontTable.fonts[i];
    ASSERT_TRUE(font && font->sheet->format->BitsPerPixel == 8) << i;
    TTF_Font* ttf = TTF_OpenFont(gameFontPath, sizes[i]);
    TTF_SetFontStyle(ttf, styles[i]);
    // One run per character between separators, as wide as SDL_ttf renders it; the last column a separator.
    int width = 95;
    for (int c = 33; c <= 126; ++c) {
      int w = 0;
      TTF_SizeText(ttf, std::string(1, fontCharacterSet[c - 33]).c_str(), &w, nullptr);
      EXPECT_EQ(font->glyphs[c].w, w) << i << ": " << c;
      width += w;
    }
    TTF_CloseFont(ttf);
    EXPECT_TRUE(font->sheet->w == width && static_cast<const Uint8*>(font->sheet->pixels)[width - 1] == 2) << i;
    const SDL_Color* top = &font->sheet->format->palette->colors[255];
    EXPECT_EQ(Uint32(top->r << 16 | top->g << 8 | top->b), colours[i]) << i;
  }
  TTF_Quit();
}
