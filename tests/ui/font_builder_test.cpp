#include "ui/font_builder.h"

#include <SDL_ttf.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <string>

#include "support/test_support.h"

namespace {

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

Uint8 sheetIndex(SDL_Surface* sheet, int x, int y) {
  return static_cast<const Uint8*>(sheet->pixels)[y * sheet->pitch + x];
}

// The brightest colour inside a character's glyph on a built font's sheet.
SDL_Color brightest(const BitmapFont* font, int c) {
  const SDL_Rect& g = font->glyphs[c];
  SDL_Color best{0, 0, 0, 0};
  for (int y = 1; y < font->sheet->h; ++y) {
    for (int x = g.x; x < g.x + g.w; ++x) {
      const SDL_Color& col = font->sheet->format->palette->colors[sheetIndex(font->sheet, x, y)];
      if (col.r + col.g + col.b > best.r + best.g + best.b) best = col;
    }
  }
  return best;
}

int litPixels(const BitmapFont* font, int c) {
  const SDL_Rect& g = font->glyphs[c];
  int lit = 0;
  for (int y = 1; y < font->sheet->h; ++y) {
    for (int x = g.x; x < g.x + g.w; ++x) lit += sheetIndex(font->sheet, x, y) != 0;
  }
  return lit;
}

class FontBuilderTest : public ::testing::Test {
 protected:
  void SetUp() override { ensureScreen(); }
};

}  // namespace

TEST(FontBuilderCharset, IsPrintableAsciiWithAnApostropheForTheGrave) {
  ASSERT_EQ(std::strlen(fontCharacterSet), 94u);
  for (int i = 0; i < 94; ++i) {
    EXPECT_EQ(fontCharacterSet[i], i == 63 ? '\'' : static_cast<char>(33 + i)) << i;
  }
}

TEST_F(FontBuilderTest, SheetHasOneRunPerCharacterBetweenSeparators) {
  SurfacePtr sheet(buildFontSheet("ATX_A.ttf", 0, 12, 255, 255, 255));
  ASSERT_TRUE(sheet);
  ASSERT_EQ(sheet->format->BitsPerPixel, 8);
  const SDL_Color* palette = sheet->format->palette->colors;
  EXPECT_EQ(palette[0].r + palette[0].g + palette[0].b, 0);
  EXPECT_EQ(palette[2].r, 255);
  EXPECT_EQ(palette[2].g, 0);
  EXPECT_EQ(palette[2].b, 255);
  EXPECT_EQ(sheetIndex(sheet.get(), 0, 0), 2);
  EXPECT_EQ(sheetIndex(sheet.get(), sheet->w - 1, 0), 2);
  EXPECT_EQ(sheetIndex(sheet.get(), 0, sheet->h - 1), 0);

  // The runs of row 0 and their widths, checked against SDL_ttf's own renderings.
  ASSERT_EQ(TTF_Init(), 0);
  TTF_Font* ttf = TTF_OpenFont("ATX_A.ttf", 12);
  ASSERT_TRUE(ttf);
  int sum = 0, runs = 0, x = 1;
  for (int i = 0; i < 94; ++i) {
    const char text[2] = {fontCharacterSet[i], 0};
    SurfacePtr glyph(TTF_RenderText_Shaded(ttf, text, SDL_Color{255, 255, 255, 0}, SDL_Color{0, 0, 0, 0}));
    ASSERT_TRUE(glyph);
    EXPECT_EQ(glyph->h, sheet->h);
    sum += glyph->w;
    for (int k = 0; k < glyph->w; ++k) EXPECT_NE(sheetIndex(sheet.get(), x + k, 0), 2) << i;
    EXPECT_EQ(sheetIndex(sheet.get(), x + glyph->w, 0), 2) << i;
    x += glyph->w + 1;
    ++runs;
  }
  TTF_CloseFont(ttf);
  TTF_Quit();
  EXPECT_EQ(runs, 94);
  EXPECT_EQ(sheet->w, 95 + sum);
  // No shade of any glyph took the separator's index.
  for (int y = 1; y < sheet->h; ++y) {
    for (int col = 0; col < sheet->w; ++col) ASSERT_NE(sheetIndex(sheet.get(), col, y), 2) << col << "," << y;
  }
}

TEST_F(FontBuilderTest, ScannedSheetDrawsAnApostropheForBothCodes) {
  BitmapFont* font = fontTable.fonts[2];
  ASSERT_TRUE(font);
  for (int c = 33; c <= 126; ++c) EXPECT_GT(font->glyphs[c].w, 0) << c;
  EXPECT_EQ(font->glyphs[127].w, 0);
  const SDL_Rect& quote = font->glyphs['\''];
  const SDL_Rect& grave = font->glyphs['`'];
  ASSERT_EQ(quote.w, grave.w);
  EXPECT_NE(quote.x, grave.x);
  for (int y = 1; y < font->sheet->h; ++y) {
    for (int x = 0; x < quote.w; ++x) {
      EXPECT_EQ(sheetIndex(font->sheet, quote.x + x, y), sheetIndex(font->sheet, grave.x + x, y)) << x << "," << y;
    }
  }
}

TEST_F(FontBuilderTest, TableHoldsTheSeventeenFontsInOrder) {
  for (int i = 0; i < fontCount; ++i) {
    BitmapFont* font = fontTable.fonts[i];
    ASSERT_TRUE(font) << i;
    EXPECT_EQ(fontTable.heights[i], font->height) << i;
    EXPECT_EQ(font->glyphs[' '].w, font->glyphs['!'].w) << i;
    // The shades run from black to the entry's colour, and the glyphs are drawn in them.
    const SDL_Color& top = font->sheet->format->palette->colors[255];
    EXPECT_EQ(top.r, fontSpecs[i].r) << i;
    EXPECT_EQ(top.g, fontSpecs[i].g) << i;
    EXPECT_EQ(top.b, fontSpecs[i].b) << i;
    const SDL_Color c = brightest(font, 'H');
    const Uint8 channels[3] = {c.r, c.g, c.b};
    const Uint8 wanted[3] = {fontSpecs[i].r, fontSpecs[i].g, fontSpecs[i].b};
    for (int k = 0; k < 3; ++k) {
      EXPECT_LE(channels[k], wanted[k]) << i;
      EXPECT_GE(channels[k] * 10, wanted[k] * 8) << i;
    }
  }
  const int* h = fontTable.heights;
  EXPECT_EQ(h[0], h[1]);
  for (int i = 3; i <= 6; ++i) EXPECT_EQ(h[i], h[2]) << i;
  EXPECT_LT(h[0], h[2]);
  EXPECT_LT(h[2], h[7]);
  EXPECT_LT(h[7], h[9]);
  EXPECT_LT(h[9], h[13]);
  // Bold strokes light more pixels than plain ones of the same size.
  EXPECT_GT(litPixels(fontTable.fonts[3], 'M'), litPixels(fontTable.fonts[2], 'M'));
  EXPECT_GT(litPixels(fontTable.fonts[10], 'M'), litPixels(fontTable.fonts[9], 'M'));
}

TEST_F(FontBuilderTest, BuildingLeavesTheLastEntryCurrent) {
  const FontTable saved = fontTable;
  BitmapFont* savedCurrent = currentFont();
  FontTable* built = buildFonts();
  EXPECT_EQ(built, &fontTable);
  EXPECT_EQ(currentFont(), fontTable.fonts[16]);
  for (int i = 0; i < fontCount; ++i) {
    EXPECT_EQ(fontTable.heights[i], saved.heights[i]) << i;
    freeFont(fontTable.fonts[i]);
  }
  fontTable = saved;
  setCurrentFont(savedCurrent);
}

TEST_F(FontBuilderTest, MissingFontFileLeavesTheEntriesEmpty) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(buildFontSheet("no-such-font.ttf", 1, 16, 1, 2, 3), nullptr);
  const std::string err = testing::internal::GetCapturedStderr();
  EXPECT_EQ(err.rfind("Error: couldn't load 16 pt font from no-such-font.ttf: ", 0), 0u) << err;

  // The whole table, built where the game font is missing.
  const FontTable saved = fontTable;
  BitmapFont* savedCurrent = currentFont();
  char* home = getcwd(nullptr, 0);
  TempDir empty;
  ASSERT_EQ(chdir(empty.dir().c_str()), 0);
  testing::internal::CaptureStderr();
  buildFonts();
  const std::string all = testing::internal::GetCapturedStderr();
  ASSERT_EQ(chdir(home), 0);
  free(home);
  for (int i = 0; i < fontCount; ++i) {
    EXPECT_EQ(fontTable.fonts[i], nullptr) << i;
    EXPECT_EQ(fontTable.heights[i], 0) << i;
  }
  EXPECT_EQ(all.rfind("Error: couldn't load 10 pt font from ATX_A.ttf: ", 0), 0u) << all;
  EXPECT_EQ(currentFont(), savedCurrent);
  fontTable = saved;
}
