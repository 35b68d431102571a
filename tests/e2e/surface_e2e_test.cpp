// A whole visit to a planet through the real game: from a saved game in orbit
// around the planet richest in minerals, sweep it, choose a site, descend,
// drive the rover over the deposits, launch, and find the load in the ship.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"
#include "universe/star_map.h"

namespace {

struct RichPlanet {
  int x = -1, y = -1, lane = -1, density = -1;
};

// The planet with the highest mineral density on the game's star map.
RichPlanet richestPlanet() {
  ensureScreen();
  clearStarMap(starMap);
  loadStarmap(starMap);
  RichPlanet best;
  for (int x = 0; x < 500; ++x)
    for (int y = 0; y < 500; ++y)
      if (const StellarObject* o = starMap[x][y].object)
        for (int lane = 0; lane < maxPlanets; ++lane)
          if (o->Planets[lane] && o->Planets[lane]->MineralDensity > best.density)
            best = RichPlanet{x, y, lane, o->Planets[lane]->MineralDensity};
  return best;
}

std::vector<float> holdOf(const std::string& state, const char* name) {
  std::string list = stateField(state, name);
  std::vector<float> values;
  for (char& c : list)
    if (c == '[' || c == ']' || c == ',') c = ' ';
  std::istringstream in(list);
  for (float v; in >> v;) values.push_back(v);
  return values;
}

float sum(const std::vector<float>& v) {
  float s = 0;
  for (float x : v) s += x;
  return s;
}

float number(const std::string& state, const char* name) {
  return std::strtof(stateField(state, name).c_str(), nullptr);
}

// The saved game of the data directory, in orbit around the given planet.
std::string orbitSave(const RichPlanet& p) {
  char text[600];
  std::snprintf(text, sizeof text,
                "Surveyor\nWandering Lark\n%d\n%d\n140\n2\n%d\n2\nKestrel\nAegis\nHelion\nPulseLaser\nPulseLaser\n"
                "MiningLaser\n0, 4.5, 0, 0, 2.25, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.75, 0, 0, 0, 0\n"
                "0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n",
                p.x, p.y, p.lane);
  return text;
}

}  // namespace

TEST(SurfaceEndToEnd, SweepLandDriveCollectAndLaunch) {
  const RichPlanet planet = richestPlanet();
  ASSERT_GE(planet.lane, 0) << "no planet on the star map";
  TempDir tmp;
  const std::string data = tmp.path("data");
  std::filesystem::copy(PROSPECTOR_DATA_DIR, data, std::filesystem::copy_options::recursive);
  {
    FILE* f = std::fopen((data + "/NewGame.sav").c_str(), "w");
    ASSERT_NE(f, nullptr);
    std::fputs(orbitSave(planet).c_str(), f);
    std::fclose(f);
  }
  const std::string shot = tmp.path("rover.bmp");
  std::string script;
  script += "at 0 state\n";
  script += clickRow(1, 1) + clickRow(10, 0);  // Science, Sensors
  script += "at 60 state\n";
  script +=
      clickRow(62, 4) + clickRow(71, 0) + clickRow(80, 0) + clickRow(89, 0);  // Bridge, Captain, Land, Select Site
  script += "at 98 mouse move 125 80\nat 101 mouse down\nat 104 mouse up\n";  // the site: cell (100, 60)
  script += "at 106 state\n";
  // Select Site holds the command window still: click it off, then Descent.
  script += "at 108 mouse move 600 270\nat 111 mouse down\nat 114 mouse up\n" + clickRow(117, 1);
  script += "at 171 state\nat 172 state\n";
  script += clickRow(180, 4) + clickRow(189, 2) + clickRow(198, 0);  // Bridge, Navigator, Maneuver
  // North for 40 frames, a quarter turn to the left, on for 40 more.
  script += "at 210 key down up\nat 250 key down left\nat 268 key up left\n";
  script += "at 270 screenshot " + shot + "\nat 300 key up up\nat 302 state\n";
  // Maneuver off, Bridge, Captain, Launch.
  script += "at 305 mouse down\nat 308 mouse up\n" + clickRow(312, 3) + clickRow(321, 0) + clickRow(330, 0);
  script += "at 385 state\nat 386 state\n";

  const RunResult r = runGame("--data " + data + " --seed 1 --unthrottled --log-stdout --frames 390 --script " +
                              tmp.write("s.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 8u) << r.out;
  const std::string &start = states[0], &swept = states[1], &sited = states[2], &descending = states[3],
                    &landed = states[4], &driven = states[5], &launching = states[6], &launched = states[7];

  EXPECT_EQ(stateNumber(start, "mode"), 2);
  EXPECT_EQ(stateNumber(swept, "scansTaken"), 1);
  EXPECT_EQ(stateNumber(sited, "currentMenu"), 11);
  EXPECT_EQ(stateNumber(descending, "mode"), 2) << "49 frames of descent";
  EXPECT_EQ(stateNumber(descending, "descentRunning"), 1);
  EXPECT_EQ(stateNumber(landed, "mode"), 3) << "landed after 50 frames";
  EXPECT_EQ(stateNumber(landed, "currentMenu"), 2);
  EXPECT_EQ(stateNumber(driven, "mode"), 3);
  EXPECT_EQ(stateNumber(driven, "heading"), 90);
  EXPECT_EQ(stateNumber(launching, "launchRunning"), 1) << "50 frames of launch";
  EXPECT_EQ(stateNumber(launched, "mode"), 2) << "back in orbit after 51 frames";
  EXPECT_EQ(stateNumber(launched, "currentMenu"), 1);

  // Free space is capacity less the load, in both holds, at every step.
  const float capacity = number(start, "shipHoldCapacity");
  for (const std::string& s : states) {
    EXPECT_NEAR(number(s, "roverHoldFree"), 50.0f - sum(holdOf(s, "roverHold")), 0.02f);
    EXPECT_NEAR(number(s, "shipHoldFree"), capacity - sum(holdOf(s, "shipHold")), 0.02f);
  }

  // The launch moved the rover's whole load into the ship, mineral by mineral.
  const std::vector<float> roverBefore = holdOf(launching, "roverHold"), shipBefore = holdOf(launching, "shipHold");
  const std::vector<float> roverAfter = holdOf(launched, "roverHold"), shipAfter = holdOf(launched, "shipHold");
  ASSERT_EQ(shipAfter.size(), 22u);
  for (int m = 0; m < 22; ++m) {
    EXPECT_NEAR(shipAfter[m], shipBefore[m] + roverBefore[m], 0.011f) << m;
    EXPECT_EQ(roverAfter[m], 0.0f) << m;
  }

  if (stateNumber(start, "deposits") == 0) GTEST_SKIP() << "the planet has no deposits to collect";
  EXPECT_GT(sum(holdOf(driven, "roverHold")), 0.0f);
  EXPECT_NE(r.out.find("Collected "), std::string::npos);
  EXPECT_GT(sum(shipAfter), sum(holdOf(start, "shipHold")));
}
