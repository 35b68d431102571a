#include "ui/frames.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "support/test_support.h"

namespace {

struct SurfaceDeleter {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfacePtr = std::unique_ptr<SDL_Surface, SurfaceDeleter>;

SurfacePtr blackSurface(int w, int h) {
  SurfacePtr s(SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0xFF0000, 0x00FF00, 0x0000FF, 0));
  SDL_FillRect(s.get(), nullptr, 0);
  return s;
}

// White drawn at alpha a over black comes out as grey a (give or take the blender's rounding).
int grey(SDL_Surface* s, int x, int y) { return static_cast<int>(pixelRGB(s, x, y) & 0xFF); }

::testing::AssertionResult greyNear(SDL_Surface* s, int x, int y, int alpha) {
  const Uint32 rgb = pixelRGB(s, x, y);
  const int r = rgb >> 16, g = (rgb >> 8) & 0xFF, b = rgb & 0xFF;
  if (r == g && g == b && std::abs(b - alpha) <= 2) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "pixel (" << x << ", " << y << ") is " << std::hex << rgb << std::dec
                                       << ", expected grey " << alpha;
}

bool allBlack(SDL_Surface* s) {
  for (int y = 0; y < s->h; ++y) {
    for (int x = 0; x < s->w; ++x) {
      if (pixelRGB(s, x, y) != 0) return false;
    }
  }
  return true;
}

}  // namespace

TEST(FramesFading, RingsFadeInwardAndCornersAreBlendedOnce) {
  SurfacePtr s = blackSurface(100, 100);
  drawFadingFrame(s.get(), 10, 10, 60, 50, 255, 255, 255, 5);
  const int alphas[5] = {255, 204, 153, 102, 51};
  for (int i = 0; i < 5; ++i) {
    EXPECT_TRUE(greyNear(s.get(), 10 + i, 30, alphas[i]));  // left
    EXPECT_TRUE(greyNear(s.get(), 60 - i, 30, alphas[i]));  // right
    EXPECT_TRUE(greyNear(s.get(), 35, 10 + i, alphas[i]));  // top
    EXPECT_TRUE(greyNear(s.get(), 35, 50 - i, alphas[i]));  // bottom
    // Each ring's corners: a second blend would brighten them.
    EXPECT_TRUE(greyNear(s.get(), 10 + i, 10 + i, alphas[i]));
    EXPECT_TRUE(greyNear(s.get(), 60 - i, 50 - i, alphas[i]));
    EXPECT_TRUE(greyNear(s.get(), 60 - i, 10 + i, alphas[i]));
  }
  EXPECT_EQ(pixelRGB(s.get(), 15, 30), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 35, 15), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 9, 30), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 61, 30), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 35, 51), 0u);
}

TEST(FramesFading, TenRingsEndAtThirtyAndOneRingIsAnOutline) {
  SurfacePtr s = blackSurface(100, 100);
  drawFadingFrame(s.get(), 0, 0, 99, 99, 255, 255, 255, 10);
  EXPECT_TRUE(greyNear(s.get(), 1, 50, 230));
  EXPECT_TRUE(greyNear(s.get(), 9, 50, 30));
  EXPECT_EQ(pixelRGB(s.get(), 10, 50), 0u);

  SurfacePtr one = blackSurface(20, 20);
  drawFadingFrame(one.get(), 2, 3, 12, 13, 164, 164, 255, 1);
  for (int x : {2, 12}) {
    for (int y : {3, 8, 13}) EXPECT_EQ(pixelRGB(one.get(), x, y), 0xA4A4FFu) << x << "," << y;
  }
  EXPECT_EQ(pixelRGB(one.get(), 7, 3), 0xA4A4FFu);
  EXPECT_EQ(pixelRGB(one.get(), 3, 4), 0u);
  EXPECT_EQ(pixelRGB(one.get(), 1, 3), 0u);
}

TEST(FramesFading, ScreenSizedFrameTouchesTheOuterEdge) {
  SurfacePtr s = blackSurface(800, 600);
  drawFadingFrame(s.get(), 0, 0, 799, 599, 255, 255, 255, 5);
  EXPECT_TRUE(greyNear(s.get(), 0, 300, 255));
  EXPECT_TRUE(greyNear(s.get(), 799, 300, 255));
  EXPECT_TRUE(greyNear(s.get(), 400, 0, 255));
  EXPECT_TRUE(greyNear(s.get(), 400, 599, 255));
  EXPECT_TRUE(greyNear(s.get(), 4, 300, 51));
  EXPECT_TRUE(greyNear(s.get(), 400, 595, 51));
  EXPECT_EQ(pixelRGB(s.get(), 5, 300), 0u);
  // No rings and a surface missing: nothing happens.
  SurfacePtr empty = blackSurface(10, 10);
  drawFadingFrame(empty.get(), 0, 0, 9, 9, 255, 255, 255, 0);
  drawGlowFrame(empty.get(), 0, 0, 9, 9, 255, 255, 255, 0);
  drawGlowLine(empty.get(), 0, 0, 0, 9, 255, 255, 255, 0);
  EXPECT_TRUE(allBlack(empty.get()));
  drawFadingFrame(nullptr, 0, 0, 9, 9, 255, 255, 255, 3);
}

TEST(FramesGlow, RingsReachBothWaysFromAnOpaqueBase) {
  SurfacePtr s = blackSurface(60, 60);
  drawGlowFrame(s.get(), 20, 20, 40, 35, 255, 255, 255, 3);
  // Base rectangle, corners included, opaque.
  for (int x : {20, 30, 40}) {
    EXPECT_TRUE(greyNear(s.get(), x, 20, 255)) << x;
    EXPECT_TRUE(greyNear(s.get(), x, 35, 255)) << x;
  }
  EXPECT_TRUE(greyNear(s.get(), 20, 28, 255));
  EXPECT_TRUE(greyNear(s.get(), 40, 28, 255));
  // Outward and inward rings on every side.
  EXPECT_TRUE(greyNear(s.get(), 19, 28, 170));
  EXPECT_TRUE(greyNear(s.get(), 18, 28, 85));
  EXPECT_TRUE(greyNear(s.get(), 21, 28, 170));
  EXPECT_TRUE(greyNear(s.get(), 22, 28, 85));
  EXPECT_TRUE(greyNear(s.get(), 42, 28, 85));
  EXPECT_TRUE(greyNear(s.get(), 30, 18, 85));
  EXPECT_TRUE(greyNear(s.get(), 30, 37, 85));
  EXPECT_TRUE(greyNear(s.get(), 30, 33, 85));
  EXPECT_TRUE(greyNear(s.get(), 18, 18, 85));  // outer corner
  // The glow stops n - 1 pixels out and in.
  EXPECT_EQ(pixelRGB(s.get(), 17, 28), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 43, 28), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 30, 17), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 30, 38), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 23, 28), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 17, 17), 0u);
}

TEST(FramesGlowLine, ParallelsKeepTheLineLength) {
  SurfacePtr s = blackSurface(100, 100);
  drawGlowLine(s.get(), 50, 10, 50, 40, 255, 255, 255, 3);
  EXPECT_TRUE(greyNear(s.get(), 50, 10, 255));
  EXPECT_TRUE(greyNear(s.get(), 50, 40, 255));
  EXPECT_TRUE(greyNear(s.get(), 49, 25, 170));
  EXPECT_TRUE(greyNear(s.get(), 51, 25, 170));
  EXPECT_TRUE(greyNear(s.get(), 48, 10, 85));
  EXPECT_TRUE(greyNear(s.get(), 52, 40, 85));
  EXPECT_EQ(pixelRGB(s.get(), 53, 25), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 47, 25), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 50, 9), 0u);
  EXPECT_EQ(pixelRGB(s.get(), 50, 41), 0u);

  SurfacePtr h = blackSurface(100, 100);
  drawGlowLine(h.get(), 10, 50, 80, 50, 0, 255, 0, 2);
  EXPECT_EQ(pixelRGB(h.get(), 10, 50), 0x00FF00u);
  EXPECT_NEAR(static_cast<int>(pixelRGB(h.get(), 80, 51) >> 8), 128, 2);
  EXPECT_NEAR(static_cast<int>(pixelRGB(h.get(), 45, 49) >> 8), 128, 2);
  EXPECT_EQ(pixelRGB(h.get(), 45, 52), 0u);
  EXPECT_EQ(pixelRGB(h.get(), 81, 50), 0u);

  // A single point is a one-pixel vertical line with its parallels.
  SurfacePtr p = blackSurface(20, 20);
  drawGlowLine(p.get(), 10, 10, 10, 10, 255, 255, 255, 3);
  EXPECT_TRUE(greyNear(p.get(), 10, 10, 255));
  EXPECT_TRUE(greyNear(p.get(), 11, 10, 170));
  EXPECT_EQ(pixelRGB(p.get(), 10, 11), 0u);
  EXPECT_EQ(grey(p.get(), 10, 9), 0);
}

TEST(FramesGlowLine, SlantedLineDrawsNothing) {
  SurfacePtr s = blackSurface(50, 50);
  drawGlowLine(s.get(), 5, 5, 40, 30, 255, 255, 255, 5);
  EXPECT_TRUE(allBlack(s.get()));
}
