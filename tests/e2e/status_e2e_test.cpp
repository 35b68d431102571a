#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "support/test_support.h"
#include "ui/bitmap_font.h"
#include "ui/font_builder.h"
#include "universe/star_map.h"

namespace {

SurfacePtr loadShot(const std::string& path) { return SurfacePtr(SDL_LoadBMP(path.c_str())); }

// Whether `text` in `font` shows on the screenshot at (x, y), pixel for pixel.
bool showsText(SDL_Surface* shot, int x, int y, BitmapFont* font, const std::string& text) {
  const int w = textWidth(font, text.c_str()), h = fontHeight(font);
  SurfacePtr reference = blankSurface(w + 1, h);
  printString(reference.get(), font, 0, 0, "%s", text.c_str());
  for (int row = 0; row < h; ++row)
    for (int col = 0; col < w; ++col)
      if (pixelRGB(shot, x + col, y + row) != pixelRGB(reference.get(), col, row)) return false;
  return true;
}

// The ship's dot on the plan: (sysX / 50, 245 - sysY / 50) on the plan at (515, 5).
Uint32 dotPixel(SDL_Surface* shot, const std::string& state) {
  return pixelRGB(shot, 515 + stateNumber(state, "sysX") / 50, 5 + 245 - stateNumber(state, "sysY") / 50);
}

// From the shipped saved game the ship flies into the home system, then on for a
// few cells: the plan shows the star and the dot, which moves up the plan with it.
TEST(StatusEndToEnd, PlanShowsTheShipMovingAcrossTheSystem) {
  TempDir tmp;
  std::string script = clickRow(5, 2) + clickRow(14, 0) +  // Navigator, Maneuver
                       "at 25 key down up\nat 40 key up up\nat 60 key down up\nat 68 key up up\n"
                       "at 58 screenshot " +
                       tmp.path("before.bmp") + "\nat 85 screenshot " + tmp.path("after.bmp") + "\n";
  for (int frame : {58, 85}) script += "at " + std::to_string(frame) + " state\n";
  const RunResult r = runGame("--unthrottled --seed 3 --frames 86 --script " + tmp.write("plan.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u);
  ASSERT_EQ(stateNumber(states[0], "mode"), 1) << "not in the system by frame 58";
  ASSERT_EQ(stateNumber(states[1], "mode"), 1) << "the ship left the system or went into orbit";
  ASSERT_LT(stateNumber(states[0], "sysY") / 50 + 2, stateNumber(states[1], "sysY") / 50) << "the ship hardly moved";

  const SurfacePtr before = loadShot(tmp.path("before.bmp")), after = loadShot(tmp.path("after.bmp"));
  ASSERT_TRUE(before && after);
  EXPECT_NE(pixelRGB(before.get(), 515 + 140, 5 + 122), 0u) << "no star in the middle of the plan";
  EXPECT_NE(dotPixel(before.get(), states[0]), 0u);
  EXPECT_NE(dotPixel(after.get(), states[1]), 0u);
  EXPECT_EQ(dotPixel(after.get(), states[0]), 0u) << "the dot stayed where it was";
}

// Starting in orbit round a planet of the home system (a saved game of our own),
// Science, Sensors sweeps for 30 frames and ends with the planet's readings;
// Science, Status then shows the ship's status in the pane.
TEST(StatusEndToEnd, SensorSweepEndsWithThePlanetsReadings) {
  ensureScreen();
  clearStarMap(starMap);
  loadStarmap(starMap);
  const StellarObject* home = starMap[100][100].object;
  ASSERT_NE(home, nullptr);
  int lane = 0;
  while (lane < maxPlanets && !home->Planets[lane]) ++lane;
  ASSERT_LT(lane, maxPlanets);
  const Planet& planet = *home->Planets[lane];

  // The data directory with a saved game in orbit round that planet.
  TempDir data;
  for (const auto& e : std::filesystem::directory_iterator(PROSPECTOR_DATA_DIR))
    if (e.path().filename() != "NewGame.sav")
      std::filesystem::create_symlink(e.path(), data.path(e.path().filename().string()));
  data.write("NewGame.sav", "Surveyor\nWandering Lark\n100\n100\n140\n20\n" + std::to_string(lane) +
                                "\n2\nKestrel\nAegis\nHelion\nPulseLaser\nPulseLaser\nMiningLaser\n"
                                "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n"
                                "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n");
  TempDir tmp;
  std::string script = clickRow(5, 1) + clickRow(14, 0) +                                         // Science, Sensors
                       "at 60 screenshot " + tmp.path("readings.bmp") + "\n" + clickRow(62, 3) +  // Status
                       "at 70 screenshot " + tmp.path("status.bmp") + "\n";
  for (int frame = 15; frame <= 70; ++frame) script += "at " + std::to_string(frame) + " state\n";
  const RunResult r = runGame("--data " + data.dir() + " --unthrottled --seed 5 --frames 71 --script " +
                              tmp.write("sweep.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 56u);
  const auto at = [&](std::size_t i, const char* name) { return stateNumber(states[i], name); };
  EXPECT_EQ(at(0, "mode"), 2) << "the saved game did not start in orbit";

  std::size_t done = 0;
  while (done < states.size() && at(done, "scansTaken") == 0) ++done;
  ASSERT_LT(done, states.size()) << "the sweep never ended";
  ASSERT_GE(done, 30u);
  for (std::size_t i = done - 29; i < done; ++i) EXPECT_EQ(at(i, "scanRunning"), 1) << "frame " << 15 + i;
  EXPECT_EQ(at(done - 30, "scanRunning"), 0) << "the sweep took more than 30 frames";
  EXPECT_EQ(at(done, "scanRunning"), 0);
  EXPECT_LE(15 + done, 60u);

  const SurfacePtr readings = loadShot(tmp.path("readings.bmp"));
  ASSERT_TRUE(readings);
  BitmapFont* value = fontTable.fonts[4];
  const auto after = [value](const char* label) { return 520 + textWidth(value, label); };
  char mass[40], gravity[40], temperature[40];
  std::snprintf(mass, sizeof mass, "%.2f x 10", double(planet.Mass));
  std::snprintf(gravity, sizeof gravity, "%.2fg", double(planet.Gravity));
  std::snprintf(temperature, sizeof temperature, "%dc to %dc", planet.MinTemp, planet.MaxTemp);
  EXPECT_TRUE(showsText(readings.get(), 520, 15, fontTable.fonts[2], "Orbital Lane:"));
  EXPECT_TRUE(showsText(readings.get(), after("Orbital Lane: "), 15, value, std::to_string(lane)));
  EXPECT_TRUE(showsText(readings.get(), after("Mass: "), 35, value, mass));
  EXPECT_TRUE(showsText(readings.get(), after("Gravity: "), 55, value, gravity));
  EXPECT_TRUE(showsText(readings.get(), after("Temperature: "), 75, value, temperature));
  EXPECT_TRUE(showsText(readings.get(), after("Mineral Density: "), 95, value, std::to_string(planet.MineralDensity)));

  EXPECT_EQ(at(states.size() - 1, "showShipStatus"), 1);
  const SurfacePtr status = loadShot(tmp.path("status.bmp"));
  ASSERT_TRUE(status);
  EXPECT_TRUE(showsText(status.get(), 515, 25, fontTable.fonts[2], "Ship Class   : Surveyor"));
  clearStarMap(starMap);
}

}  // namespace
