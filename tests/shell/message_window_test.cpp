#include "shell/message_window.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "shell/debug_log.h"
#include "shell/main_loop.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

constexpr int stripX = 5, stripY = 515;

class MessageWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensureScreen();
    initLog(&debugLog, &fontTable, screen, 0);
    initMessageWindow(&messageWindow, &fontTable, screen);
    SDL_FillRect(screen, nullptr, 0);
  }
  void TearDown() override {
    collapseMessages();
    hideLog();
    historyScroll = 0;
  }

  // Right-most lit column in a band of rows of the screen, or -1.
  static int bandEnd(int top, int height, int left, int right) {
    int end = -1;
    for (int y = std::max(top, 0); y < top + height; ++y) {
      for (int x = left; x < right; ++x) {
        if (pixelRGB(screen, x, y) != 0) end = std::max(end, x);
      }
    }
    return end;
  }
  // Strip line `row` (0 = bottom): printed in entry 0, stepped by entry 2's height.
  static int stripLineEnd(int row) {
    const int top = stripY + 80 - fontTable.heights[0] - row * fontTable.heights[2];
    return bandEnd(top, fontTable.heights[0], stripX, stripX + 790);
  }
  static int stripTextEnd(const char* text) { return stripX + textWidth(fontTable.fonts[0], text) - 1; }
  // Expanded window line `row` (0 = bottom), entry 2.
  static int windowLineEnd(int row) {
    const int h = fontTable.heights[2];
    return bandEnd(50 + 490 - h * (row + 1), h, 85, 715);
  }
  static int windowTextEnd(const char* text) { return 85 + textWidth(fontTable.fonts[2], text) - 1; }
};

}  // namespace

TEST_F(MessageWindowTest, StripShowsTheNewestMessageAtTheBottom) {
  showMessage("Entering orbit");
  showMessage("Orbit established");
  EXPECT_NEAR(stripLineEnd(0), stripTextEnd("Orbit established"), 3);
  EXPECT_NEAR(stripLineEnd(1), stripTextEnd("Entering orbit"), 3);
  EXPECT_EQ(stripLineEnd(2), -1);
  // The strip is printed in the small white font, then the ordinary font is current again.
  EXPECT_EQ(currentFont(), fontTable.fonts[2]);
  EXPECT_EQ(bandEnd(0, stripY, 0, 800), -1);
}

TEST_F(MessageWindowTest, EmptyStripDrawsNoTextAndLogsNothing) {
  const int before = debugLog.writeIndex;
  drawMessageWindow();
  EXPECT_EQ(debugLog.writeIndex, before);
  EXPECT_EQ(bandEnd(stripY, 80, stripX, stripX + 790), -1);
}

TEST_F(MessageWindowTest, EveryStripDrawingCopiesItsLinesIntoTheLog) {
  showMessage("m0");
  showMessage("m1");
  EXPECT_EQ(debugLog.writeIndex, 3);  // m0, then m1 and m0
  EXPECT_STREQ(debugLog.lines[1], "m1");
  EXPECT_STREQ(debugLog.lines[2], "m0");
  for (int i = 2; i < 10; ++i) showMessagef("m%d", i);
  const int before = debugLog.writeIndex;
  drawMessageWindow();
  ASSERT_EQ(debugLog.writeIndex, before + 7);
  for (int k = 0; k < 7; ++k) EXPECT_EQ(std::string(debugLog.lines[before + k]), "m" + std::to_string(9 - k));
}

TEST_F(MessageWindowTest, LongMessagesAreCutTo99Characters) {
  showMessage(std::string(300, 'z').c_str());
  EXPECT_EQ(std::strlen(messageWindow.lines[0]), 99u);
  EXPECT_EQ(std::strlen(debugLog.lines[0]), 99u);
  EXPECT_EQ(messageWindow.writeIndex, 1);
}

TEST_F(MessageWindowTest, RingWrapsAfterAThousandMessages) {
  for (int i = 0; i < 1000; ++i) {
    std::snprintf(messageWindow.lines[i], logLineLength, "old %d", i);
  }
  messageWindow.writeIndex = 999;
  showMessage("newest");
  EXPECT_EQ(messageWindow.writeIndex, 0);
  EXPECT_STREQ(messageWindow.lines[999], "newest");
  showMessage("wrapped");
  EXPECT_STREQ(messageWindow.lines[0], "wrapped");
  EXPECT_EQ(messageWindow.writeIndex, 1);
}

TEST_F(MessageWindowTest, ExpandedWindowStartsAtTheScrolledLine) {
  showMessage("WWWWWWWWWWWWWWWWWWWW");
  showMessage("W");
  showMessage("WW");
  expandMessages();
  EXPECT_EQ(messageWindow.expanded, 1);
  SDL_FillRect(screen, nullptr, 0);
  historyScroll = 2;
  drawMessageWindow();
  EXPECT_EQ(pixelRGB(screen, 75, 300), 0xFFFF00u);
  EXPECT_NEAR(windowLineEnd(0), windowTextEnd("WWWWWWWWWWWWWWWWWWWW"), 3);
  EXPECT_EQ(windowLineEnd(1), -1);

  // A message while expanded redraws the large window, not the strip.
  historyScroll = 0;
  const int logged = debugLog.writeIndex;
  showMessage("WWW");
  EXPECT_EQ(debugLog.writeIndex, logged);
  EXPECT_NEAR(windowLineEnd(0), windowTextEnd("WWW"), 3);
  EXPECT_NEAR(windowLineEnd(1), windowTextEnd("WW"), 3);
  EXPECT_NEAR(windowLineEnd(3), windowTextEnd("WWWWWWWWWWWWWWWWWWWW"), 3);
  EXPECT_EQ(windowLineEnd(4), -1);

  collapseMessages();
  EXPECT_EQ(messageWindow.expanded, 0);
}

TEST_F(MessageWindowTest, DrawingWithoutAScreenOnlyStores) {
  setLogScreen(nullptr, 0);
  showMessage("kept");
  expandMessages();
  drawMessageWindow();
  setLogScreen(screen, 0);
  EXPECT_STREQ(messageWindow.lines[0], "kept");
  EXPECT_EQ(debugLog.writeIndex, 0);
  EXPECT_EQ(bandEnd(0, 600, 0, 800), -1);
}
