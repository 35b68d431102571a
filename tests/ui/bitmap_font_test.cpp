#include "support/test_support.h"

namespace {

using FontPtr = std::unique_ptr<BitmapFont, decltype(&freeFont)>;

// Glyphs `widths` wide, lit white in every row, between the magenta separator columns of the top row.
FontPtr fontFromWidths(const std::vector<int>& widths, int height = 6) {
  std::string row = "S";
  for (int w : widths) row += std::string(w, 'G') + "S";
  SDL_Surface* s = blankSurface(static_cast<int>(row.size()), height).release();
  for (int i = 0; i < s->w * height; ++i)
    if (row[i % s->w] != 'S' || i < s->w) putPixel(s, i % s->w, i / s->w, row[i % s->w] == 'S' ? 0xFF00FF : 0xFFFFFF);
  return FontPtr(fontFromSurface(s), freeFont);
}

// The runs of lit columns in row y, as "first-last first-last"; the surface is cleared for the next drawing.
std::string lit(SDL_Surface* s, int y) {
  std::string runs;
  for (int x = 0, first = -1; x <= s->w; ++x) {
    const bool on = x < s->w && pixelRGB(s, x, y) != 0;
    if (on && first < 0) first = x;
    if (!on && first >= 0) runs += (runs.empty() ? "" : " ") + std::to_string(first) + "-" + std::to_string(x - 1);
    if (!on) first = -1;
  }
  SDL_FillRect(s, nullptr, 0);
  return runs;
}

}  // namespace

TEST(BitmapFont, PlacementOnA100PixelTargetClippedAdvancesAndTheCutAt1023Characters) {
  FontPtr font = fontFromWidths(std::vector<int>(94, 10));
  SurfacePtr target = blankSurface(100, 8);
  SDL_Surface* t = target.get();
  EXPECT_EQ(textWidth("a\t\x01 b"), 30);  // control characters have no glyph
  EXPECT_EQ((centeredPut(t, 0, "ab"), lit(t, 3)), "40-59");
  EXPECT_EQ((centeredPut(t, 0, "aaaaaaaaaaa"), lit(t, 3)), "0-99");  // from -5: the first glyph moves 5
  EXPECT_EQ((centeredPut(t, 0, "aaaaaaaaaaaa"), lit(t, 3)), "");     // from -10: every glyph moves 0
  // Advances are clipped at the edges too; a blank moves by the space's width, a missing glyph by 0.
  const int advances[][3] = {{5, 'a', 10}, {-4, 'a', 6}, {-30, 'a', 0}, {95, 'a', 5}, {0, ' ', 10}, {0, 127, 0}};
  for (const auto& a : advances) EXPECT_EQ(putChar(t, font.get(), a[0], 0, a[1]), a[2]) << a[0];
  SDL_FillRect(t, nullptr, 0);
  putString(t, font.get(), -4, 0, "ab");  // b starts at 2, over a's tail; glyph rows 1..5 land at 0..4
  EXPECT_EQ(pixelRGB(t, 3, 5), 0u);
  EXPECT_EQ(lit(t, 4), "0-11");
  const FontPtr tinted(tintedFont(font.get(), 255, 128, 0), freeFont);  // white ink takes the tint itself
  EXPECT_EQ(pixelRGB(tinted->sheet, 1, 2), 0xFF8000u);
  // Printing cuts at 1023 characters.
  font = fontFromWidths(std::vector<int>(94, 1), 3);
  target = blankSurface(1600, 3);
  t = target.get();
  EXPECT_EQ((printString(t, font.get(), 0, 0, "%s", std::string(1500, 'a').c_str()), lit(t, 1)), "0-1022");
  EXPECT_EQ((rightPrint(t, 0, "%d-%s", 42, "x"), lit(t, 1)), "1595-1598");
  setCurrentFont(nullptr);  // without a current font nothing is drawn
  EXPECT_EQ(putChar(t, 0, 0, 'a') + textWidth("abc"), 0);
  EXPECT_EQ((printString(t, 0, 0, "abc"), lit(t, 1)), "");
}
