// The game's face against the fixed places its text is drawn in: every line
// shows whole and neighbours keep apart.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/message_window.h"
#include "base/screen.h"
#include "displays/status_window.h"
#include "ship/ship.h"
#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"

namespace {

// Text is drawn in shades of grey; frames and bars are coloured.
bool isText(Uint32 p) { return p && (p >> 16) == (p & 0xFF) && ((p >> 8) & 0xFF) == (p & 0xFF); }

// Heights of the runs of consecutive rows of `r` that hold text pixels.
std::vector<int> textRuns(SDL_Surface* s, SDL_Rect r) {
  std::vector<int> runs;
  int run = 0;
  for (int y = r.y; y <= r.y + r.h; ++y) {
    bool lit = false;
    for (int x = r.x; x < r.x + r.w && y < r.y + r.h && !lit; ++x) lit = isText(pixelRGB(s, x, y));
    if (lit) ++run;
    if (!lit && run) runs.push_back(std::exchange(run, 0));
  }
  return runs;
}

// `text` printed alone in `font`: its first and last lit columns and its runs of text rows.
struct Ink {
  int first = 1000, last = -1;
  std::vector<int> rows;
};
Ink inkOf(BitmapFont* font, const std::string& text) {
  SurfacePtr page = blankSurface(400, 60);
  printString(page.get(), font, 0, 10, "%s", text.c_str());
  Ink ink;
  for (int x = 0; x < 400; ++x)
    for (int y = 0; y < 60; ++y)
      if (pixelRGB(page.get(), x, y)) ink.first = std::min(ink.first, x), ink.last = std::max(ink.last, x);
  ink.rows = textRuns(page.get(), {0, 0, 400, 60});
  return ink;
}

const std::string tallAndLow = "Hd|([gjpqy Collected";

TEST(TextFit, HistoryLinesShowWholeInTheStripAndTheLargeWindow) {
  ensureScreen();
  initMessageWindow(&messageWindow, &fontTable, screen);
  for (int i = 0; i < 40; ++i) showMessage(tallAndLow.c_str());
  struct Case {
    int expanded, font;
    SDL_Rect area;
  };
  for (const Case& c : {Case{0, 0, {5, 515, 790, 80}}, Case{1, 2, {75, 50, 650, 500}}}) {
    SDL_FillRect(screen, nullptr, 0);
    messageWindow.expanded = c.expanded;
    drawMessageWindow();
    const std::vector<int> whole = inkOf(fontTable.fonts[c.font], tallAndLow).rows;
    ASSERT_EQ(whole.size(), 1u);
    const std::vector<int> shown = textRuns(screen, c.area);
    EXPECT_GE(shown.size(), c.expanded ? 30u : 6u);
    for (int h : shown) {
      EXPECT_EQ(h, whole[0]) << "a line cut by its window's edge (expanded " << c.expanded << ")";
    }
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
  const std::pair<int, const char*> labels[] = {{43, "0%"}, {68, "25%"}, {93, "50%"}, {117, "75%"}, {143, "100%"}};
  int previousEnd = -1;
  for (auto [x, label] : labels) {
    SurfacePtr alone = blankSurface(60, 40);
    printString(alone.get(), text, 0, 0, "%s", label);
    for (int y = 0; y < 40; ++y)
      for (int col = 0; col < 60; ++col)
        if (const Uint32 p = pixelRGB(alone.get(), col, y)) {
          ASSERT_EQ(pixelRGB(screen, 515 + x + col, 5 + 235 + y), p) << label << " cut at row " << y;
        }
    const Ink ink = inkOf(text, label);
    EXPECT_LT(previousEnd + 1, x + ink.first) << label << " runs into its left neighbour";
    previousEnd = x + ink.last;
  }
  // The gauge numbers end at least one column before the 0 % line at x = 50.
  EXPECT_LT(inkOf(text, "000/999").last, 49);
}

}  // namespace
