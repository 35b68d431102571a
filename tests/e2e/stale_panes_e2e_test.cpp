// Moments that used to leave old or blank pixels on screen, played through the
// real game and read back from its screenshots.
#include <SDL.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "base/screen.h"
#include "shell/flight.h"
#include "support/test_support.h"

namespace {

struct Shot {
  SurfacePtr image;
  explicit Shot(const std::string& path) : image(SDL_LoadBMP(path.c_str())) {}
  Uint32 at(int x, int y) const { return pixelRGB(image.get(), x, y); }
};

// How many pixels of the box differ between two screenshots.
int differing(const Shot& a, const Shot& b, int x1, int y1, int x2, int y2) {
  int n = 0;
  for (int y = y1; y <= y2; ++y)
    for (int x = x1; x <= x2; ++x) n += a.at(x, y) != b.at(x, y);
  return n;
}

// The pane borders: the bands round x = 510, y = 255 (right half) and y = 510.
int bordersDiffering(const Shot& a, const Shot& b) {
  return differing(a, b, 506, 0, 514, 599) + differing(a, b, 515, 251, 799, 259) + differing(a, b, 0, 506, 799, 514);
}

std::string key(int frame, const char* name, const char* mods = "") {
  return "at " + std::to_string(frame) + " key down " + name + " " + mods + "\nat " + std::to_string(frame + 1) +
         " key up " + name + " " + mods + "\n";
}

}  // namespace

TEST(StalePanesEndToEnd, SweepHistoryWindowsAndCaptureLeaveNothingBehind) {
  TempDir tmp;
  // In orbit round lane 0 of the home system: Science, Sensors, then the log,
  // the message history and the frame-rate read-out each opened and closed.
  const std::string orbit = dataCopyWithSave(tmp, 2, 100, 100, 140, 2, 0);
  std::string script = clickRow(1, 1) + clickRow(10, 0) + key(72, "d", "ctrl") + key(75, "d", "ctrl") +
                       key(82, "z", "ctrl") + key(85, "z", "ctrl") + key(92, "r", "ctrl") + "at 1 state\n";
  const char* names[] = {"swept", "log", "history", "rate"};
  for (int i = 0; i < 4; ++i)
    script += "at " + std::to_string(70 + 10 * i) + " screenshot " + tmp.path(names[i]) + "\n";
  RunResult r = runScript(script, "--data '" + orbit + "' --seed 3 --frames 101");
  ASSERT_EQ(r.status, 0) << r.err;
  const Shot swept(tmp.path("swept"));
  ASSERT_TRUE(swept.image);
  // The sweep's light-blue lines are gone from round the wire globe once it ends.
  int blue = 0;
  for (int y = 120; y < 240; ++y)
    for (int x = 595; x < 715; ++x) {
      const Uint32 p = swept.at(x, y);
      blue += (p & 0xFF) > 100 && (p & 0xFF) > ((p >> 8) & 0xFF) + 40;
    }
  EXPECT_EQ(blue, 0) << "sweep lines left behind the globe";
  // Closing each window brings back the command window, the message strip
  // (left of the frame-rate read-out) and the map's legend in that frame.
  for (const char* name : {"log", "history", "rate"}) {
    const Shot after(tmp.path(name));
    ASSERT_TRUE(after.image) << name;
    EXPECT_EQ(differing(swept, after, 515, 260, 794, 504), 0) << "command window after " << name;
    EXPECT_EQ(differing(swept, after, 5, 515, 749, 594), 0) << "message strip after " << name;
    EXPECT_EQ(differing(swept, after, 10, 210, 500, 295), 0) << "legend after " << name;
    EXPECT_EQ(bordersDiffering(swept, after), 0) << name;
  }

  // Flying into a planet with the configuration window open: orbit shows its
  // panes inside whole borders, with no piece of the window left.
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 1u);
  const std::string list = stateField(stateField(states[0], "currentObject"), "OrbitAngles");
  std::vector<int> angles;
  std::stringstream in(list.substr(1, list.size() - 2));
  for (std::string item; std::getline(in, item, ',');) angles.push_back(std::stoi(item));
  ASSERT_FALSE(angles.empty());
  fillTrigTables();
  int px = 0, py = 0;
  planetCell(0, angles[0], px, py);
  ASSERT_GE(py, 3) << "lane 0 lies too low to approach from below";
  TempDir again;
  const std::string system = dataCopyWithSave(again, 1, 100, 100, px, py - 3, 0);
  script = clickRow(5, 2) + clickRow(14, 0) + key(25, "e") + "at 30 key down up\nat 90 state\nat 90 screenshot " +
           again.path("captured.bmp") + "\n";
  r = runScript(script, "--data '" + system + "' --seed 3 --frames 91");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> captured = stateLines(r.out);
  ASSERT_EQ(captured.size(), 1u);
  ASSERT_EQ(stateNumber(captured[0], "mode"), 2) << "the ship did not reach lane 0";
  ASSERT_EQ(stateNumber(captured[0], "configOpen"), 1);
  const Shot shot(again.path("captured.bmp"));
  ASSERT_TRUE(shot.image);
  EXPECT_EQ(bordersDiffering(swept, shot), 0) << "pane borders lost under the configuration window";
}
