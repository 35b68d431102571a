// The game's face against the fixed places its text is drawn in: every history line shows whole.
#include "support/test_support.h"

namespace {

// Heights of the runs of consecutive rows of `r` that hold text, drawn in shades of grey (frames are coloured).
std::vector<int> textRuns(SDL_Surface* s, SDL_Rect r) {
  std::vector<int> runs;
  int run = 0;
  for (int y = r.y; y <= r.y + r.h; ++y) {
    bool lit = false;
    for (int x = r.x; x < r.x + r.w && y < r.y + r.h && !lit; ++x) {
      const Uint32 p = pixelRGB(s, x, y);
      lit = p && (p >> 16) == (p & 0xFF) && ((p >> 8) & 0xFF) == (p & 0xFF);
    }
    if (lit) ++run;
    if (!lit && run) runs.push_back(std::exchange(run, 0));
  }
  return runs;
}

}  // namespace

TEST(TextFit, HistoryLinesShowWholeInTheStripAndTheLargeWindow) {
  ensureScreen();
  initMessageWindow(&messageWindow, &fontTable, screen);
  const char* tallAndLow = "Hd|([gjpqy Collected";
  for (int i = 0; i < 40; ++i) showMessage(tallAndLow);
  for (auto [expanded, font, area] :
       {std::tuple{0, 0, SDL_Rect{5, 515, 790, 80}}, {1, 2, SDL_Rect{75, 50, 650, 500}}}) {
    SurfacePtr alone = blankSurface(400, 60);
    printString(alone.get(), fontTable.fonts[font], 0, 10, "%s", tallAndLow);
    const std::vector<int> whole = textRuns(alone.get(), {0, 0, 400, 60});
    SDL_FillRect(screen, nullptr, 0);
    messageWindow.expanded = expanded;
    drawMessageWindow();
    const std::vector<int> shown = textRuns(screen, area);
    ASSERT_EQ(whole.size(), 1u);
    EXPECT_GE(shown.size(), expanded ? 30u : 6u);
    EXPECT_EQ(shown, std::vector<int>(shown.size(), whole[0])) << "a line cut by its window's edge, " << expanded;
  }
  collapseMessages();
}
