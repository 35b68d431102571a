#include "shell/debug_log.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "shell/main_loop.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

// The log window lies at (75, 50) on the screen; its text lines are counted
// upward from the bottom one.
constexpr int windowX = 75, windowY = 50;

class DebugLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensureScreen();
    initLog(&debugLog, &fontTable, screen, 0);
    SDL_FillRect(screen, nullptr, 0);
  }
  void TearDown() override {
    hideLog();
    historyScroll = 0;
    setLogEcho(false);
  }

  // The right-most lit column of text line `row` (0 = bottom) of the log window, or -1.
  static int lineEnd(int row) {
    const int h = fontTable.heights[2];
    const int top = windowY + 490 - h * (row + 1);
    int end = -1;
    for (int y = top; y < top + h; ++y) {
      for (int x = windowX + 10; x < windowX + 640; ++x) {
        if (pixelRGB(screen, x, y) != 0) end = std::max(end, x);
      }
    }
    return end;
  }
  static int expectedEnd(const char* text) { return windowX + 10 + textWidth(fontTable.fonts[2], text) - 1; }
};

}  // namespace

TEST_F(DebugLogTest, RingWrapsAfterAThousandLines) {
  for (int i = 0; i < 1000; ++i) logMessagef("line %d", i);
  EXPECT_EQ(debugLog.writeIndex, 0);
  EXPECT_STREQ(debugLog.lines[0], "line 0");
  EXPECT_STREQ(debugLog.lines[999], "line 999");
  logMessage("line 1000");
  EXPECT_STREQ(debugLog.lines[0], "line 1000");
  EXPECT_EQ(debugLog.writeIndex, 1);
}

TEST_F(DebugLogTest, LongLinesAreCutTo99Characters) {
  const std::string text(150, 'x');
  logMessage(text.c_str());
  EXPECT_EQ(std::strlen(debugLog.lines[0]), 99u);
  logMessage(nullptr);
  EXPECT_STREQ(debugLog.lines[1], "");
}

TEST_F(DebugLogTest, ScrollStaysWithinTheRing) {
  for (int i = 0; i < 2000; ++i) scrollHistoryBack();
  EXPECT_EQ(historyScroll, 966);
  scrollHistoryForward();
  EXPECT_EQ(historyScroll, 965);
  for (int i = 0; i < 2000; ++i) scrollHistoryForward();
  EXPECT_EQ(historyScroll, 0);
}

TEST_F(DebugLogTest, HiddenLogDrawsNothingAndVisibleLogDrawsAtOnce) {
  logMessage("quiet");
  EXPECT_EQ(pixelRGB(screen, windowX, windowY), 0u);
  EXPECT_EQ(lineEnd(0), -1);

  showLog();
  logMessage("loud");
  // White, as near as the 16-bit window keeps it.
  EXPECT_EQ(pixelRGB(screen, windowX, windowY) & 0xF0F0F0, 0xF0F0F0u);
  // The frame's right and bottom edges fall just off the 650 x 500 window: ring 1 shows there.
  EXPECT_NEAR(static_cast<int>(pixelRGB(screen, windowX + 649, windowY + 300) & 0xFF), 230, 8);
  EXPECT_EQ(pixelRGB(screen, windowX + 650, windowY + 300), 0u);
  EXPECT_NEAR(lineEnd(0), expectedEnd("loud"), 3);
  EXPECT_NEAR(lineEnd(1), expectedEnd("quiet"), 3);
  EXPECT_EQ(lineEnd(2), -1);
}

TEST_F(DebugLogTest, ScrolledWindowStartsAtTheRightLine) {
  logMessage("WWWWWWWWWWWWWWWWWWWW");
  logMessage("W");
  logMessage("WW");
  historyScroll = 2;
  drawLog();
  EXPECT_NEAR(lineEnd(0), expectedEnd("WWWWWWWWWWWWWWWWWWWW"), 3);
  EXPECT_EQ(lineEnd(1), -1);

  historyScroll = 0;
  drawLog();
  EXPECT_NEAR(lineEnd(0), expectedEnd("WW"), 3);
  EXPECT_NEAR(lineEnd(1), expectedEnd("W"), 3);
  EXPECT_NEAR(lineEnd(2), expectedEnd("WWWWWWWWWWWWWWWWWWWW"), 3);
  EXPECT_EQ(lineEnd(3), -1);
}

TEST_F(DebugLogTest, FullRingShowsTheNewestLinesAtTheBottom) {
  for (int i = 0; i < 1040; ++i) logMessage(std::string(i % 5 + 1, 'W').c_str());
  drawLog();
  EXPECT_NEAR(lineEnd(0), expectedEnd("WWWWW"), 3);  // line 1039
  EXPECT_NEAR(lineEnd(1), expectedEnd("WWWW"), 3);
  // Scrolled all the way back, across the ring's wrap.
  historyScroll = 966;
  drawLog();
  EXPECT_NEAR(lineEnd(0), expectedEnd(std::string((1039 - 966) % 5 + 1, 'W').c_str()), 3);
}

TEST_F(DebugLogTest, LinesBeforeTheWindowExistAreOnlyStored) {
  SDL_Surface* windowSurface = debugLog.surface;
  debugLog.surface = nullptr;
  showLog();
  logMessage("early");
  debugLog.surface = windowSurface;
  setLogScreen(nullptr, 0);
  logMessage("no screen");
  setLogScreen(screen, 0);
  EXPECT_EQ(logScreen(), screen);
  EXPECT_STREQ(debugLog.lines[0], "early");
  EXPECT_STREQ(debugLog.lines[1], "no screen");
  EXPECT_EQ(pixelRGB(screen, windowX, windowY), 0u);
}

TEST_F(DebugLogTest, WindowIsA16BitSurfaceAndEchoGoesToStdout) {
  ASSERT_TRUE(debugLog.surface);
  EXPECT_EQ(debugLog.surface->w, 650);
  EXPECT_EQ(debugLog.surface->h, 500);
  EXPECT_EQ(debugLog.surface->format->BitsPerPixel, 16);

  setLogEcho(true);
  testing::internal::CaptureStdout();
  logMessage("Loading Starmap");
  logMessage(std::string(120, 'y').c_str());
  const std::string out = testing::internal::GetCapturedStdout();
  EXPECT_EQ(out, "Loading Starmap\n" + std::string(99, 'y') + "\n");
}
