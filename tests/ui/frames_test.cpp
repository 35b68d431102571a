#include "ui/frames.h"

#include "support/test_support.h"

namespace {

// From (x, y) in steps of (dx, dy): `colour` blended over black at each alpha, give or take rounding.
::testing::AssertionResult walk(SDL_Surface* s, int x, int y, int dx, int dy, const std::vector<int>& alphas,
                                Uint32 colour = 0xFFFFFF) {
  for (std::size_t i = 0; i < alphas.size(); ++i, x += dx, y += dy)
    for (int shift : {0, 8, 16}) {
      const int got = (pixelRGB(s, x, y) >> shift) & 0xFF, want = alphas[i] * ((colour >> shift) & 0xFF) / 255;
      if (std::abs(got - want) > (alphas[i] ? 2 : 0)) return ::testing::AssertionFailure() << x << "," << y;
    }
  return ::testing::AssertionSuccess();
}

}  // namespace

// Fading rings fade inward, each corner blended once; a glow reaches n - 1 pixels both ways along straight lines.
TEST(Frames, FadingRingsFadeInwardAndGlowsReachBothWays) {
  SurfacePtr s = blankSurface(100, 100);
  drawFadingFrame(s.get(), 10, 10, 60, 50, 255, 255, 255, 5);
  // In from each side, and along the diagonals through the corners, where a second blend would show.
  const int walks[][4] = {{9, 30, 1, 0}, {61, 30, -1, 0},  {35, 9, 0, 1},  {35, 51, 0, -1},
                          {9, 9, 1, 1},  {61, 51, -1, -1}, {61, 9, -1, 1}, {9, 51, 1, -1}};
  for (const auto& w : walks) EXPECT_TRUE(walk(s.get(), w[0], w[1], w[2], w[3], {0, 255, 204, 153, 102, 51, 0}));
  EXPECT_TRUE(walk(s.get(), 9, 51, 1, 0, std::vector<int>(53, 0)));  // nothing spills below the frame
  SDL_FillRect(s.get(), nullptr, 0);
  drawGlowFrame(s.get(), 20, 20, 40, 35, 255, 255, 255, 3);
  drawGlowLine(s.get(), 70, 10, 70, 40, 255, 255, 255, 3);
  drawGlowLine(s.get(), 90, 90, 90, 90, 255, 255, 255, 3);  // a point: a one-pixel vertical line
  drawGlowLine(s.get(), 10, 80, 80, 80, 0, 255, 0, 2);
  const int glows[][4] = {{17, 28, 1, 0},  {43, 28, -1, 0}, {30, 17, 0, 1}, {30, 38, 0, -1}, {17, 17, 1, 1},
                          {43, 17, -1, 1}, {67, 10, 1, 0},  {67, 40, 1, 0}, {87, 90, 1, 0}};
  for (const auto& w : glows) EXPECT_TRUE(walk(s.get(), w[0], w[1], w[2], w[3], {0, 85, 170, 255, 170, 85, 0}));
  EXPECT_TRUE(walk(s.get(), 67, 41, 1, 0, {0, 0, 0, 0, 0, 0, 0}));  // the parallels keep the line's length
  EXPECT_TRUE(walk(s.get(), 45, 78, 0, 1, {0, 128, 255, 128, 0}, 0x00FF00));
}
