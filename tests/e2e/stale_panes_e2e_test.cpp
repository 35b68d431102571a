// Moments that used to leave old or blank pixels on screen, and the cargo window, played through the real game and
// read back from its screenshots.
#include "shell/flight.h"
#include "support/test_support.h"

namespace {

// Boxes x1, y1, x2, y2 (inclusive): the command window, the message strip left of the frame-rate read-out, the
// map's legend, then from `firstBorder` the pane borders round x = 510, y = 255 (right half) and y = 510.
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

TEST(StalePanesEndToEnd, SweepHistoryWindowsCargoAndCaptureLeaveNothingBehind) {
  TempDir tmp;
  const auto shot = [&](const std::string& name) { return SurfacePtr(SDL_LoadBMP(tmp.path(name).c_str())); };
  // Round lane 0 of the home system: Science, Sensors, the log, history and frame rate each opened and closed;
  // then Bridge, Captain, Cargo, two clicks on Iron's Up arrow and the ship's Jettison.
  std::string script = clickRow(1, 1) + clickRow(10, 0) + key(72, "d", "ctrl") + key(75, "d", "ctrl") +
                       key(82, "z", "ctrl") + key(85, "z", "ctrl") + key(92, "r", "ctrl") + "at 1 state\n";
  const char* names[] = {"swept", "log", "history", "rate"};
  for (int i = 0; i < 4; ++i)
    script += "at " + std::to_string(70 + 10 * i) + " screenshot " + tmp.path(names[i]) + "\n";
  script += clickRow(102, 4) + clickRow(111, 0) + clickRow(120, 2) + "at 129 state\n" + clickAt(131, 125, 95) +
            clickAt(140, 125, 95) + "at 148 screenshot " + tmp.path("cargo") + "\n" + clickAt(149, 200, 550) +
            "at 157 state\n";
  RunResult r =
      runScript(script, "--data '" + dataCopyWithSave(tmp, 2, 100, 100, 140, 2, 0) + "' --seed 3 --frames 157");
  ASSERT_EQ(r.status, 0) << r.err;
  std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 3u) << r.out;
  const SurfacePtr swept = shot("swept");
  ASSERT_TRUE(swept);
  // The sweep's light-blue lines are gone from round the wire globe once it ends.
  int blue = 0;
  for (int i = 0; i < 120 * 120; ++i) {
    const Uint32 p = pixelRGB(swept.get(), 595 + i % 120, 120 + i / 120);
    blue += (p & 0xFF) > 100 && (p & 0xFF) > ((p >> 8) & 0xFF) + 40;
  }
  EXPECT_EQ(blue, 0) << "sweep lines left behind the globe";
  // Closing each window brings back every pane and border in that frame.
  for (const char* name : {"log", "history", "rate"}) {
    const SurfacePtr after = shot(name);
    ASSERT_TRUE(after) << name;
    for (const int* box : boxes) EXPECT_EQ(differing(swept.get(), after.get(), box), 0) << name << " " << box[0];
  }
  // The shipped hold: Iron 4.5 CU, 2.25 in slot 4 and 0.75 in slot 17; two of the Iron thrown away.
  std::vector<float> hold = stateFloats(states[1], "shipHold");
  ASSERT_EQ(hold.size(), 22u);
  EXPECT_EQ(std::vector<float>(hold.begin(), hold.begin() + 5), (std::vector<float>{0, 4.5f, 0, 0, 2.25f}));
  EXPECT_EQ(hold[17], 0.75f);
  hold[1] = 2.5f;
  EXPECT_EQ(stateFloats(states[2], "shipHold"), hold);
  EXPECT_EQ(std::tuple(stateNumber(states[1], "cargoOpen"), stateNumber(states[2], "cargoOpen")), std::tuple(1, 1));
  EXPECT_EQ(stateField(states[1], "shipHoldFree") + " " + stateField(states[2], "shipHoldFree"), "192.5 194.5");
  // The cargo window covers the screen: its green frame, and Iron's text in its row.
  const SurfacePtr cargo = shot("cargo");
  ASSERT_TRUE(cargo);
  EXPECT_EQ(pixelRGB(cargo.get(), 0, 300), 0x00FF00u);
  EXPECT_GT(litPixels(cargo.get(), 150, 90, 280, 105), 0);

  // Flying into lane 0 with the configuration window open: orbit shows its panes inside whole borders, with no
  // piece of the window left, and the command window and strip back, not blank until the pointer moves.
  const std::vector<float> angles = stateFloats(states[0], "OrbitAngles");
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
  for (int b = 0; b < 2; ++b) EXPECT_GT(litPixels(shown.get(), boxes[b][0], boxes[b][1], boxes[b][2], boxes[b][3]), 0);
}
