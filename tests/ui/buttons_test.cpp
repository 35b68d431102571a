#include "ui/buttons.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <tuple>

#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

SurfacePtr blackScreen() {
  SurfacePtr s(SDL_CreateRGBSurface(SDL_SWSURFACE, 800, 600, 32, 0xFF0000, 0x00FF00, 0x0000FF, 0));
  SDL_FillRect(s.get(), nullptr, 0);
  return s;
}

class TextButtonTest : public ::testing::Test {
 protected:
  void SetUp() override { initTextButton(&close, 30, 20, 760, 10, " X "); }
  TextButton close;
};

}  // namespace

TEST_F(TextButtonTest, LongLabelsAreCut) {
  TextButton longer;
  initTextButton(&longer, 10, 10, 0, 0, "A label far longer than any button of the game would carry");
  EXPECT_EQ(std::strlen(longer.label), sizeof longer.label - 1);
}

TEST_F(TextButtonTest, HoverIsStrictlyInside) {
  const int inside[][2] = {{775, 20}, {761, 11}, {789, 29}};
  const int border[][2] = {{760, 20}, {775, 30}, {790, 29}, {775, 10}};
  for (const auto& p : inside) {
    trackHover(p[0], p[1], &close);
    EXPECT_EQ(close.hover, 1) << p[0] << "," << p[1];
  }
  for (const auto& p : border) {
    trackHover(p[0], p[1], &close);
    EXPECT_EQ(close.hover, 0) << p[0] << "," << p[1];
  }
}

TEST_F(TextButtonTest, ReleaseDecidesTheClick) {
  // Press and release on the button: one click, taken once.
  trackHover(775, 20, &close);
  pressButton(&close);
  EXPECT_EQ(close.pressed, 1);
  releaseButton(&close);
  EXPECT_EQ(close.pressed, 0);
  EXPECT_EQ(takeClick(&close), 1);
  EXPECT_EQ(takeClick(&close), 0);

  // Press elsewhere, move on, release: still a click.
  trackHover(100, 100, &close);
  pressButton(&close);
  trackHover(775, 20, &close);
  releaseButton(&close);
  EXPECT_EQ(takeClick(&close), 1);

  // Press on it, move off, release: no click, and a click not taken is cleared.
  pressButton(&close);
  releaseButton(&close);
  pressButton(&close);
  trackHover(700, 20, &close);
  releaseButton(&close);
  EXPECT_EQ(takeClick(&close), 0);
}

TEST_F(TextButtonTest, HoveredDotsRunALapClockwise) {
  ensureScreen();
  SurfacePtr s = blackScreen();
  close.hover = 1;
  // Dot 1 from the top-left corner, dot 2 half a lap ahead from the bottom-right.
  using Dots = std::tuple<int, int, int, int, int>;
  auto dots = [&] { return Dots{close.dot1X, close.dot1Y, close.dot2X, close.dot2Y, close.dotPhase}; };
  EXPECT_EQ(dots(), (Dots{760, 10, 790, 30, 0}));
  for (int i = 0; i < 30; ++i) drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(dots(), (Dots{790, 10, 760, 30, 1}));
  for (int i = 0; i < 20; ++i) drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(dots(), (Dots{790, 30, 760, 10, 2}));

  // Away from the button the dots wait where they are.
  close.hover = 0;
  for (int i = 0; i < 7; ++i) drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(close.dot1X, 790);
  close.hover = 1;
  for (int i = 0; i < 50; ++i) drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(dots(), (Dots{760, 10, 790, 30, 0}));

  // Holding the mouse button stops them.
  close.pressed = 1;
  drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(close.dot1X, 760);
}

TEST_F(TextButtonTest, ThreeLooksAndACentredRedLabel) {
  ensureScreen();
  setCurrentFont(fontTable.fonts[7]);
  SurfacePtr s = blackScreen();
  drawTextButton(s.get(), &close, &fontTable);
  EXPECT_EQ(pixelRGB(s.get(), 760, 20), 0x202080u);
  EXPECT_EQ(pixelRGB(s.get(), 790, 30), 0x202080u);
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);

  // The label's red strokes lie within its X, blanks counted in the centring.
  BitmapFont* label = fontTable.fonts[12];
  const int blank = charWidth(label, ' ');
  const int left = 760 + (30 - textWidth(label, " X ")) / 2;
  int minX = 800, maxX = -1;
  for (int y = 12; y < 12 + label->height; ++y) {
    for (int x = 740; x < 800; ++x) {
      const Uint32 p = pixelRGB(s.get(), x, y);
      if ((p >> 16) > 0x80 && (p & 0xFFFF) == 0) {
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
      }
    }
  }
  EXPECT_GE(minX, left + blank);
  EXPECT_LT(maxX, left + blank + charWidth(label, 'X'));
  EXPECT_GT(maxX, minX);

  SurfacePtr held = blackScreen();
  close.hover = close.pressed = 1;
  drawTextButton(held.get(), &close, &fontTable);
  EXPECT_EQ(pixelRGB(held.get(), 760, 20), 0x8080FFu);
  EXPECT_EQ(pixelRGB(held.get(), 757, 10), 0u);

  SurfacePtr hovered = blackScreen();
  close.pressed = 0;
  drawTextButton(hovered.get(), &close, &fontTable);
  EXPECT_EQ(pixelRGB(hovered.get(), 760, 20), 0x202080u);
  // The dots were drawn at the corners before they moved on.
  EXPECT_EQ(pixelRGB(hovered.get(), 759, 10), 0x8080FFu);
  EXPECT_EQ(pixelRGB(hovered.get(), 792, 30), 0x8080FFu);
  EXPECT_EQ(close.dot1X, 761);
  EXPECT_EQ(close.dot2X, 789);
}
