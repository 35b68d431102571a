// Moments that used to leave old or blank pixels on screen, played through the
// real game and read back from its screenshots.

#include "base/screen.h"
#include "shell/flight.h"
#include "support/test_support.h"

namespace {

// Boxes x1, y1, x2, y2 (inclusive): the command window, the message strip left of the frame-rate read-out, the
// map's legend, then the pane borders round x = 510, y = 255 (right half) and y = 510.
const int boxes[][4] = {{515, 260, 794, 504}, {5, 515, 749, 594},   {10, 210, 500, 295},
                        {506, 0, 514, 599},   {515, 251, 799, 259}, {0, 506, 799, 514}};
const int firstBorder = 3;

int differing(SDL_Surface* a, SDL_Surface* b, const int* box) {
  int n = 0;
  for (int y = box[1]; y <= box[3]; ++y)
    for (int x = box[0]; x <= box[2]; ++x) n += pixelRGB(a, x, y) != pixelRGB(b, x, y);
  return n;
}

std::string key(int frame, const char* name, const char* mods = "") {
  return "at " + std::to_string(frame) + " key down " + name + " " + mods + "\nat " + std::to_string(frame + 1) +
         " key up " + name + " " + mods + "\n";
}

}  // namespace

TEST(StalePanesEndToEnd, SweepHistoryWindowsAndCaptureLeaveNothingBehind) {
  TempDir tmp;
  const auto shot = [&](const std::string& name) { return SurfacePtr(SDL_LoadBMP(tmp.path(name).c_str())); };
  // In orbit round lane 0 of the home system: Science, Sensors, then the log,
  // the message history and the frame-rate read-out each opened and closed.
  std::string script = clickRow(1, 1) + clickRow(10, 0) + key(72, "d", "ctrl") + key(75, "d", "ctrl") +
                       key(82, "z", "ctrl") + key(85, "z", "ctrl") + key(92, "r", "ctrl") + "at 1 state\n";
  const char* names[] = {"swept", "log", "history", "rate"};
  for (int i = 0; i < 4; ++i)
    script += "at " + std::to_string(70 + 10 * i) + " screenshot " + tmp.path(names[i]) + "\n";
  RunResult r =
      runScript(script, "--data '" + dataCopyWithSave(tmp, 2, 100, 100, 140, 2, 0) + "' --seed 3 --frames 101");
  ASSERT_EQ(r.status, 0) << r.err;
  const SurfacePtr swept = shot("swept");
  ASSERT_TRUE(swept);
  // The sweep's light-blue lines are gone from round the wire globe once it ends.
  int blue = 0;
  for (int y = 120; y < 240; ++y)
    for (int x = 595; x < 715; ++x) {
      const Uint32 p = pixelRGB(swept.get(), x, y);
      blue += (p & 0xFF) > 100 && (p & 0xFF) > ((p >> 8) & 0xFF) + 40;
    }
  EXPECT_EQ(blue, 0) << "sweep lines left behind the globe";
  // Closing each window brings back every pane and border in that frame.
  for (const char* name : {"log", "history", "rate"}) {
    const SurfacePtr after = shot(name);
    ASSERT_TRUE(after) << name;
    for (const int* box : boxes) EXPECT_EQ(differing(swept.get(), after.get(), box), 0) << name << " " << box[0];
  }

  // Flying into lane 0 with the configuration window open: orbit shows its
  // panes inside whole borders, with no piece of the window left.
  const std::vector<float> angles = stateFloats(stateLines(r.out).at(0), "OrbitAngles");
  ASSERT_FALSE(angles.empty());
  fillTrigTables();
  int px = 0, py = 0;
  planetCell(0, static_cast<int>(angles[0]), px, py);
  ASSERT_GE(py, 3) << "lane 0 lies too low to approach from below";
  TempDir again;
  script = clickRow(5, 2) + clickRow(14, 0) + key(25, "e") + "at 30 key down up\nat 90 state\nat 90 screenshot " +
           tmp.path("captured") + "\n";
  r = runScript(script, "--data '" + dataCopyWithSave(again, 1, 100, 100, px, py - 3, 0) + "' --seed 3 --frames 91");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string captured = stateLines(r.out).at(0);
  ASSERT_EQ(std::pair(stateNumber(captured, "mode"), stateNumber(captured, "configOpen")), std::pair(2, 1));
  const SurfacePtr shown = shot("captured");
  ASSERT_TRUE(shown);
  for (int b = firstBorder; b < 6; ++b) EXPECT_EQ(differing(swept.get(), shown.get(), boxes[b]), 0) << "border " << b;
  // The command window and the strip are back as well, not left blank until the pointer moves.
  for (int b = 0; b < 2; ++b) EXPECT_GT(litPixels(shown.get(), boxes[b][0], boxes[b][1], boxes[b][2], boxes[b][3]), 0);
}
