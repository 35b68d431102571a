#include "ui/bitmap_font.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "support/test_support.h"

namespace {

constexpr Uint32 separatorRGB = 0xFF00FF;
constexpr Uint32 glyphRGB = 0xFFFFFF;

struct FontDeleter {
  void operator()(BitmapFont* font) const { freeFont(font); }
};
using FontPtr = std::unique_ptr<BitmapFont, FontDeleter>;
struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

SDL_Surface* rgbSurface(int w, int h) {
  SDL_Surface* s = SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0xFF0000, 0x00FF00, 0x0000FF, 0);
  SDL_FillRect(s, nullptr, 0);
  return s;
}

void setRGB(SDL_Surface* s, int x, int y, Uint32 rgb) { static_cast<Uint32*>(s->pixels)[y * s->pitch / 4 + x] = rgb; }

// A sheet drawn from its separator row: 'S' is a separator, anything else a
// glyph column, lit white in every row below the separator row.
SDL_Surface* sheetFromRow(const std::string& row, int height) {
  SDL_Surface* s = rgbSurface(static_cast<int>(row.size()), height);
  for (int x = 0; x < s->w; ++x) {
    const bool glyph = row[x] != 'S';
    setRGB(s, x, 0, glyph ? glyphRGB : separatorRGB);
    for (int y = 1; y < height; ++y) {
      if (glyph) setRGB(s, x, y, glyphRGB);
    }
  }
  return s;
}

// A sheet with one glyph per width, codes from 33 on.
SDL_Surface* sheetFromWidths(const std::vector<int>& widths, int height) {
  std::string row = "S";
  for (int w : widths) row += std::string(w, 'G') + "S";
  return sheetFromRow(row, height);
}

// Glyph widths for codes 33 to 126: 10 for '!', 'a' and 'b', 4 for the rest.
std::vector<int> gameLikeWidths() {
  std::vector<int> widths(94, 4);
  widths['!' - 33] = widths['a' - 33] = widths['b' - 33] = 10;
  return widths;
}

// Lit columns of row y, as [first, last], or {-1, -1} when the row is dark.
std::pair<int, int> litSpan(SDL_Surface* s, int y) {
  int first = -1, last = -1;
  for (int x = 0; x < s->w; ++x) {
    if (pixelRGB(s, x, y) != 0) {
      if (first < 0) first = x;
      last = x;
    }
  }
  return {first, last};
}

using Rect = std::tuple<int, int, int, int>;
Rect rect(const BitmapFont* font, int c) {
  const SDL_Rect& r = font->glyphs[c];
  return {r.x, r.y, r.w, r.h};
}

// Keeps the module's current font as other tests left it.
class BitmapFontTest : public ::testing::Test {
 protected:
  void SetUp() override { saved_ = currentFont(); }
  void TearDown() override { setCurrentFont(saved_); }
  FontPtr makeFont(const std::vector<int>& widths, int height = 6) {
    return FontPtr(fontFromSurface(sheetFromWidths(widths, height)));
  }

 private:
  BitmapFont* saved_ = nullptr;
};

}  // namespace

TEST_F(BitmapFontTest, ScanGivesCodesFrom33AndTheSpaceTheWidthOfTheFirst) {
  FontPtr font(fontFromSurface(sheetFromRow("SGGGSGGSGS", 7)));
  ASSERT_TRUE(font);
  EXPECT_EQ(currentFont(), font.get());
  EXPECT_EQ(font->height, 7);
  EXPECT_EQ(rect(font.get(), '!'), (Rect{1, 1, 3, 7}));
  EXPECT_EQ(rect(font.get(), '"'), (Rect{5, 1, 2, 7}));
  EXPECT_EQ(rect(font.get(), '#'), (Rect{8, 1, 1, 7}));
  EXPECT_EQ(rect(font.get(), '$'), (Rect{0, 0, 0, 0}));
  EXPECT_EQ(rect(font.get(), ' '), (Rect{0, 0, 3, 7}));
  // The bottom-left pixel's colour (black here) is never drawn.
  EXPECT_TRUE(font->sheet->flags & SDL_SRCCOLORKEY);
  EXPECT_EQ(font->sheet->format->colorkey, 0u);
}

TEST_F(BitmapFontTest, ScanSkipsSeparatorRunsAndStopsAtTheSheetEdge) {
  // Adjacent separators use up no code; the last run ends at the last column.
  FontPtr font(fontFromSurface(sheetFromRow("SSSGGSSSSGGG", 3)));
  EXPECT_EQ(rect(font.get(), '!'), (Rect{3, 1, 2, 3}));
  EXPECT_EQ(rect(font.get(), '"'), (Rect{9, 1, 3, 3}));
  EXPECT_EQ(font->glyphs['#'].w, 0);
  // A run that would start in the very last column is not looked at.
  FontPtr edge(fontFromSurface(sheetFromRow("SGGSG", 3)));
  EXPECT_EQ(edge->glyphs['"'].w, 0);
  // No glyph at all: even the space is empty.
  FontPtr empty(fontFromSurface(sheetFromRow("SSSSSS", 4)));
  for (int c = 0; c < 256; ++c) EXPECT_EQ(empty->glyphs[c].w, 0) << c;
  // Runs past code 255 are dropped, not written past the table.
  FontPtr many = makeFont(std::vector<int>(240, 1), 2);
  EXPECT_EQ(rect(many.get(), 255), (Rect{1 + 2 * (255 - 33), 1, 1, 2}));
  EXPECT_EQ(many->glyphs[0].w, 0);
}

TEST_F(BitmapFontTest, ConstructorsAndFreeing) {
  EXPECT_EQ(fontFromSurface(nullptr), nullptr);
  EXPECT_EQ(loadFont(nullptr), nullptr);
  EXPECT_EQ(loadFont("no/such/font.bmp"), nullptr);

  TempDir dir;
  SurfacePtr sheet(sheetFromWidths({2, 5}, 4));
  ASSERT_EQ(SDL_SaveBMP(sheet.get(), dir.path("font.bmp").c_str()), 0);
  BitmapFont* font = loadFont(dir.path("font.bmp").c_str());
  ASSERT_TRUE(font);
  EXPECT_EQ(currentFont(), font);
  EXPECT_EQ(font->glyphs['"'].w, 5);
  EXPECT_EQ(fontHeight(font), 4);
  // Freeing the current font leaves none current rather than a dangling one.
  freeFont(font);
  EXPECT_EQ(currentFont(), nullptr);
}

TEST_F(BitmapFontTest, PlacementOnA100PixelTarget) {
  FontPtr font = makeFont(gameLikeWidths());
  SurfacePtr target(rgbSurface(100, 8));
  setCurrentFont(font.get());
  EXPECT_EQ(textWidth(""), 0);
  EXPECT_EQ(textWidth("a\t\x01 b"), 30);  // control characters have no glyph

  leftPut(target.get(), 0, "ab");
  EXPECT_EQ(litSpan(target.get(), 2), std::make_pair(0, 19));

  SDL_FillRect(target.get(), nullptr, 0);
  centeredPut(target.get(), 0, "ab");
  EXPECT_EQ(litSpan(target.get(), 2), std::make_pair(40, 59));

  SDL_FillRect(target.get(), nullptr, 0);
  rightPut(target.get(), 0, "ab");
  EXPECT_EQ(litSpan(target.get(), 2), std::make_pair(79, 98));

  // Wider than the target: the text starts left of it, at -5, and its first
  // glyph moves the pen by the 5 columns that show.
  SDL_FillRect(target.get(), nullptr, 0);
  centeredPut(target.get(), font.get(), 0, "aaaaaaaaaaa");
  EXPECT_EQ(litSpan(target.get(), 2), std::make_pair(0, 99));
  // At -10 every glyph falls wholly outside and moves it by nothing.
  SDL_FillRect(target.get(), nullptr, 0);
  centeredPut(target.get(), font.get(), 0, "aaaaaaaaaaaa");
  EXPECT_EQ(litSpan(target.get(), 2).first, -1);
}

TEST_F(BitmapFontTest, JustifiedTextSpansTheWholeTarget) {
  FontPtr font = makeFont(gameLikeWidths());
  SurfacePtr target(rgbSurface(100, 8));
  setCurrentFont(font.get());

  justifiedPut(target.get(), 0, "a b");
  // gap 69 all goes between the words, plus the extra pixel: b at 90..99.
  EXPECT_EQ(pixelRGB(target.get(), 9, 3), glyphRGB);
  EXPECT_EQ(pixelRGB(target.get(), 10, 3), 0u);
  EXPECT_EQ(pixelRGB(target.get(), 89, 3), 0u);
  EXPECT_EQ(pixelRGB(target.get(), 90, 3), glyphRGB);
  EXPECT_EQ(pixelRGB(target.get(), 99, 3), glyphRGB);

  // Two gaps of 24 + space: the first r + 1 gaps (here both) get a pixel more.
  SDL_FillRect(target.get(), nullptr, 0);
  justifiedPrint(target.get(), font.get(), 0, "%s", "a a a");
  EXPECT_EQ(pixelRGB(target.get(), 44, 3), 0u);
  EXPECT_EQ(pixelRGB(target.get(), 45, 3), glyphRGB);
  EXPECT_EQ(pixelRGB(target.get(), 54, 3), glyphRGB);
  EXPECT_EQ(pixelRGB(target.get(), 55, 3), 0u);
  EXPECT_EQ(pixelRGB(target.get(), 90, 3), glyphRGB);

  // No blank, or no room: drawn from column 0 as it is.
  SDL_FillRect(target.get(), nullptr, 0);
  justifiedPut(target.get(), 0, "ab");
  EXPECT_EQ(litSpan(target.get(), 3), std::make_pair(0, 19));
  SDL_FillRect(target.get(), nullptr, 0);
  justifiedPut(target.get(), 0, "aaaaa aaaaa");
  EXPECT_EQ(litSpan(target.get(), 3).first, 0);
  EXPECT_EQ(pixelRGB(target.get(), 50, 3), 0u);  // the blank keeps its own width
}

TEST_F(BitmapFontTest, AdvancesAreClippedAtTheTargetEdge) {
  FontPtr font = makeFont(gameLikeWidths());
  SurfacePtr target(rgbSurface(40, 8));
  EXPECT_EQ(putChar(target.get(), font.get(), 5, 0, 'a'), 10);
  EXPECT_EQ(putChar(target.get(), font.get(), -4, 0, 'a'), 6);
  EXPECT_EQ(putChar(target.get(), font.get(), -30, 0, 'a'), 0);
  EXPECT_EQ(putChar(target.get(), font.get(), 35, 0, 'a'), 5);
  // A blank draws nothing and moves by the space's width; a missing glyph moves 0.
  EXPECT_EQ(putChar(target.get(), font.get(), 0, 0, ' '), 10);
  EXPECT_EQ(putChar(target.get(), font.get(), 0, 0, '\x7F'), 0);

  SDL_FillRect(target.get(), nullptr, 0);
  putString(target.get(), font.get(), -4, 0, "ab");
  // a shows in 0..5 and moves the pen by 6, so b starts at 2, over a's tail.
  EXPECT_EQ(litSpan(target.get(), 3), std::make_pair(0, 11));
  // Glyph rows 1..height-1 land at y..y+height-2.
  EXPECT_EQ(pixelRGB(target.get(), 3, 4), glyphRGB);
  EXPECT_EQ(pixelRGB(target.get(), 3, 5), 0u);
}

TEST_F(BitmapFontTest, PrintDrawsAtMost1023Characters) {
  FontPtr font = makeFont(std::vector<int>(94, 1), 3);
  SurfacePtr target(rgbSurface(1600, 3));
  const std::string text(1500, 'a');
  printString(target.get(), font.get(), 0, 0, "%s", text.c_str());
  EXPECT_EQ(litSpan(target.get(), 1), std::make_pair(0, 1022));

  SDL_FillRect(target.get(), nullptr, 0);
  setCurrentFont(font.get());
  leftPrint(target.get(), 0, "%d-%s", 42, "x");
  EXPECT_EQ(litSpan(target.get(), 1), std::make_pair(0, 3));
  SDL_FillRect(target.get(), nullptr, 0);
  rightPrint(target.get(), 0, "%s", "abc");
  EXPECT_EQ(litSpan(target.get(), 1), std::make_pair(1596, 1598));
  SDL_FillRect(target.get(), nullptr, 0);
  centeredPrint(target.get(), 0, "%s", "abcd");
  EXPECT_EQ(litSpan(target.get(), 1), std::make_pair(798, 801));
}

TEST_F(BitmapFontTest, NoCurrentFontDrawsNothing) {
  SurfacePtr target(rgbSurface(50, 8));
  setCurrentFont(nullptr);
  EXPECT_EQ(putChar(target.get(), 0, 0, 'a'), 0);
  EXPECT_EQ(textWidth("abc"), 0);
  justifiedPut(target.get(), 0, "a b c");
  printString(target.get(), 0, 0, "%s", "abc");
  EXPECT_EQ(litSpan(target.get(), 2).first, -1);
}

TEST_F(BitmapFontTest, PixelAccessByDepthAndOffSurfaceColumns) {
  for (int depth : {8, 16, 24, 32}) {
    SurfacePtr s(SDL_CreateRGBSurface(SDL_SWSURFACE, 4, 3, depth, 0, 0, 0, 0));
    ASSERT_TRUE(s) << depth;
    const Uint32 value = depth == 8 ? 0xAB : SDL_MapRGB(s->format, 200, 100, 50);
    putPixel(s.get(), 2, 1, value);
    EXPECT_EQ(GetPixel(s.get(), 2, 1), value) << depth;
    EXPECT_EQ(GetPixel(s.get(), 1, 1), depth == 8 ? 0u : SDL_MapRGB(s->format, 0, 0, 0)) << depth;
    // Writes off the surface are dropped, never made past its pixels.
    putPixel(s.get(), 4, 0, value);
    putPixel(s.get(), 0, 3, value);
    putPixel(s.get(), -1, -1, value);
  }
  SurfacePtr s(rgbSurface(4, 2));
  testing::internal::CaptureStdout();
  GetPixel(s.get(), -1, 0);
  GetPixel(s.get(), 4, 0);
  GetPixel(s.get(), 0, 7);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "x too small in GetPixel!\nx too big in GetPixel!\n");
}

TEST_F(BitmapFontTest, TintedFontScalesEveryShadeButTheKey) {
  FontPtr font = makeFont({3, 2}, 4);
  // A half-bright column in the first glyph.
  setRGB(font->sheet, 2, 2, 0x808080);
  setCurrentFont(nullptr);
  testing::internal::CaptureStdout();
  FontPtr tinted(tintedFont(font.get(), 255, 128, 0));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "looking...\nunlooking...\n");
  ASSERT_TRUE(tinted);
  ASSERT_TRUE(tinted->sheet);
  EXPECT_EQ(currentFont(), nullptr);
  EXPECT_EQ(tinted->height, 4);
  EXPECT_EQ(tinted->glyphs['"'].x, font->glyphs['"'].x);
  EXPECT_EQ(tinted->glyphs[' '].w, 3);
  EXPECT_EQ(pixelRGB(tinted->sheet, 1, 1), 0xFF8000u);
  EXPECT_EQ(pixelRGB(tinted->sheet, 2, 2), 0x804000u);
  EXPECT_EQ(pixelRGB(tinted->sheet, 0, 0), 0xFF0000u);  // the separator, tinted too
  EXPECT_EQ(pixelRGB(tinted->sheet, 0, 3), 0u);
  EXPECT_TRUE(tinted->sheet->flags & SDL_SRCCOLORKEY);
  // The original keeps its colours.
  EXPECT_EQ(pixelRGB(font->sheet, 1, 1), glyphRGB);

  SurfacePtr target(rgbSurface(10, 4));
  putString(target.get(), tinted.get(), 0, 0, "!");
  EXPECT_EQ(pixelRGB(target.get(), 0, 0), 0xFF8000u);
  EXPECT_EQ(tintedFont(nullptr, 1, 2, 3), nullptr);
}
