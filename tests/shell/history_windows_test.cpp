// The debug log and the player's messages: rings of 1000 lines, the message strip and the log's scrolling window.

#include "support/test_support.h"

namespace {

class HistoryWindowsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ensureScreen();
    initLog(&debugLog, &fontTable, screen, 0);
    initMessageWindow(&messageWindow, &fontTable, screen);
    SDL_FillRect(screen, nullptr, 0);
  }
  void TearDown() override {
    hideLog();
    collapseMessages();
    historyScroll = 0;
  }
  // Right-most lit column of a band of the screen, or -1.
  static int bandEnd(int top, int height, int left = 0, int right = 800) {
    int end = -1;
    for (int y = std::max(top, 0); y < top + height; ++y)
      for (int x = left; x < right; ++x)
        if (pixelRGB(screen, x, y) != 0) end = std::max(end, x);
    return end;
  }
  // Line `row` (0 = bottom) of the large window at (75, 50), and where `letters` W's end there.
  static int lineEnd(int row) {
    const int h = fontTable.heights[2];
    return bandEnd(540 - h * (row + 1), h, 85, 715);
  }
  static int endOf(int letters) { return 85 + textWidth(fontTable.fonts[2], std::string(letters, 'W').c_str()) - 1; }
  static void logWs(int letters) { logMessage(std::string(letters, 'W').c_str()); }
};

}  // namespace

TEST_F(HistoryWindowsTest, RingsWrapAfterAThousandLinesCutLongOnesAndTheLogScrollsBackAcrossTheWrap) {
  logWs(1);
  EXPECT_EQ(bandEnd(0, 600), -1) << "the hidden log draws nothing";
  showLog();
  logWs(3);
  EXPECT_EQ(pixelRGB(screen, 75 + 650, 350), 0u) << "the window is 650 pixels wide";
  EXPECT_NEAR(lineEnd(1), endOf(1), 3);
  EXPECT_EQ(lineEnd(2), -1);
  for (int i = 2; i < 1040; ++i) logWs(i % 5 + 1);
  EXPECT_NEAR(lineEnd(1), endOf(4), 3);
  EXPECT_EQ(std::pair(debugLog.writeIndex, std::string(debugLog.lines[39])), std::pair(40, std::string(5, 'W')));
  for (int i = 0; i < 2000; ++i) scrollHistoryBack();
  EXPECT_EQ(historyScroll, 966);
  drawLog();
  EXPECT_NEAR(lineEnd(0), endOf((1039 - 966) % 5 + 1), 3);
  for (int i = 0; i < 2000; ++i) scrollHistoryForward();
  EXPECT_EQ(historyScroll, 0);
  logMessage(std::string(150, 'x').c_str());
  logMessage(nullptr);
  EXPECT_EQ(std::string(debugLog.lines[40]) + "|" + debugLog.lines[41], std::string(99, 'x') + "|");
}

TEST_F(HistoryWindowsTest, EachStripDrawingCopiesAtMostSevenLinesIntoTheLog) {
  showMessage("Entering orbit");
  showMessage("Orbit established");
  const int h0 = fontTable.heights[0], bottom = 595 - h0;
  EXPECT_NEAR(bandEnd(bottom, h0), 4 + textWidth(fontTable.fonts[0], "Orbit established"), 3);
  EXPECT_NEAR(bandEnd(bottom - fontTable.heights[2], h0), 4 + textWidth(fontTable.fonts[0], "Entering orbit"), 3);
  EXPECT_EQ(bandEnd(0, 515), -1);

  for (int i = 2; i < 10; ++i) showMessagef("m%d", i);
  const int before = debugLog.writeIndex;
  drawMessageWindow();
  ASSERT_EQ(debugLog.writeIndex, before + 7);
  for (int k = 0; k < 7; ++k) EXPECT_EQ(std::string(debugLog.lines[before + k]), "m" + std::to_string(9 - k));
}
