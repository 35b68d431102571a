#include "ui/buttons.h"

#include "support/test_support.h"

// Held: the bright border, the dots still; hovered: the dots run round the border a pixel a frame.
TEST(TextButton, LooksFollowThePointerAndHoveredDotsRunALap) {
  ensureScreen();
  TextButton close;
  initTextButton(&close, 30, 20, 760, 10, " X ");
  SurfacePtr s = blankSurface(800, 600);
  auto after = [&](int hover, int frames) {
    close.hover = hover;
    for (int i = 0; i < frames; ++i) drawTextButton(s.get(), &close, &fontTable);
    return std::tuple{close.dot1X, close.dot1Y, close.dot2X, close.dot2Y, close.dotPhase};
  };
  after(0, 1);
  EXPECT_EQ(pixelRGB(s.get(), 790, 30), 0x202080u);
  int minX = 800, maxX = -1, minY = 600, maxY = -1;  // the label's red X: centred across, inside the frame
  for (int y = 0; y < 40; ++y)
    for (int x = 740; x < 800; ++x)
      if (const Uint32 p = pixelRGB(s.get(), x, y); (p >> 16) > 0x80 && (p & 0xFFFF) == 0) {
        minX = std::min(minX, x), maxX = std::max(maxX, x);
        minY = std::min(minY, y), maxY = std::max(maxY, y);
      }
  EXPECT_TRUE(minX < maxX && std::abs(minX + maxX - 2 * 775) <= 3) << minX << ".." << maxX;
  EXPECT_TRUE(minY > 10 && maxY < 30) << minY << ".." << maxY;
  close.pressed = 1;
  EXPECT_EQ(after(1, 1), (std::tuple{760, 10, 790, 30, 0}));
  EXPECT_EQ(pixelRGB(s.get(), 760, 20), 0x8080FFu);
  close.pressed = 0;
  EXPECT_EQ(after(1, 1), (std::tuple{761, 10, 789, 30, 0}));
  EXPECT_EQ(std::tuple(pixelRGB(s.get(), 760, 20), pixelRGB(s.get(), 759, 10), pixelRGB(s.get(), 792, 30),
                       pixelRGB(s.get(), 757, 10) | pixelRGB(s.get(), 793, 30)),
            std::tuple(0x202080u, 0x8080FFu, 0x8080FFu, 0u));
  EXPECT_EQ(after(1, 29), (std::tuple{790, 10, 760, 30, 1}));
  EXPECT_EQ(after(1, 20), (std::tuple{790, 30, 760, 10, 2}));
  EXPECT_EQ(after(0, 7), (std::tuple{790, 30, 760, 10, 2}));  // away from the button they wait
  EXPECT_EQ(after(1, 50), (std::tuple{760, 10, 790, 30, 0}));
}
