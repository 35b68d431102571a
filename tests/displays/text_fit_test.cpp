// The game's face against the fixed places its text is drawn in: every line shows whole, neighbours apart.
#include "displays/status_window.h"
#include "support/test_support.h"

namespace {

// Heights of the runs of rows of `r` that hold text, drawn in greys (frames and bars are coloured).
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

// `text` printed alone in `font` at (0, 10) of a black page.
SurfacePtr alone(BitmapFont* font, const char* text) {
  SurfacePtr page = blankSurface(400, 60);
  printString(page.get(), font, 0, 10, "%s", text);
  return page;
}

// The first and last lit columns of `text` printed alone.
std::pair<int, int> inkColumns(BitmapFont* font, const char* text) {
  const SurfacePtr page = alone(font, text);
  int first = 1000, last = -1;
  for (int i = 0; i < 400 * 60; ++i)
    if (pixelRGB(page.get(), i % 400, i / 400)) first = std::min(first, i % 400), last = std::max(last, i % 400);
  return {first, last};
}

}  // namespace

TEST(TextFit, HistoryLinesShowWholeInTheStripAndTheLargeWindow) {
  ensureScreen();
  initMessageWindow(&messageWindow, &fontTable, screen);
  const char* tallAndLow = "Hd|([gjpqy Collected";
  for (int i = 0; i < 40; ++i) showMessage(tallAndLow);
  for (auto [expanded, font, area] :
       {std::tuple{0, 0, SDL_Rect{5, 515, 790, 80}}, {1, 2, SDL_Rect{75, 50, 650, 500}}}) {
    SDL_FillRect(screen, nullptr, 0);
    messageWindow.expanded = expanded;
    drawMessageWindow();
    const std::vector<int> whole = textRuns(alone(fontTable.fonts[font], tallAndLow).get(), {0, 0, 400, 60});
    const std::vector<int> shown = textRuns(screen, area);
    ASSERT_EQ(whole.size(), 1u);
    EXPECT_GE(shown.size(), expanded ? 30u : 6u);
    EXPECT_EQ(shown, std::vector<int>(shown.size(), whole[0])) << "a line cut by its window's edge, " << expanded;
  }
  collapseMessages();
}

TEST(TextFit, StatusScaleLabelsShowWholeApartAndClearOfTheBars) {
  ensureScreen();
  SDL_FillRect(screen, nullptr, 0);
  Ship ship;
  ship.shield.shieldMax = ship.armorMax = ship.hullMax = 999;
  initStatusWindow(shipImages, &fontTable, &ship);
  drawStatusWindow(screen);
  BitmapFont* text = fontTable.fonts[2];
  // Each label whole, every lit pixel of it; clear of its left neighbour; the gauge numbers end before x = 50.
  int previousEnd = -1;
  for (auto [x, label] : {std::pair{43, "0%"}, {68, "25%"}, {93, "50%"}, {117, "75%"}, {143, "100%"}}) {
    EXPECT_TRUE(showsText(screen, 515 + x, 5 + 235, text, label, 1000, true)) << label << " cut";
    const auto [first, last] = inkColumns(text, label);
    EXPECT_LT(previousEnd + 1, x + first) << label << " runs into its left neighbour";
    previousEnd = x + last;
  }
  EXPECT_LT(inkColumns(text, "000/999").second, 49);
}
