// A whole visit to the planet richest in minerals through the real game: sweep it, open and close the history windows,
// show the ship's status, throw out cargo, choose a site, descend, drive over the deposits, launch and leave orbit.
#include <numeric>

#include "support/test_support.h"

static float sum(const std::vector<float>& v) { return std::accumulate(v.begin(), v.end(), 0.0f); }

TEST(SurfaceEndToEnd, SweepReadLandDriveCollectLaunchAndLeave) {
  ensureScreen();
  clearStarMap(starMap);
  loadStarmap(starMap);
  int sx = -1, sy = -1, lane = -1;
  const Planet* planet = nullptr;
  for (int x = 0; x < 500; ++x)
    for (int y = 0; y < 500; ++y)
      if (const StellarObject* o = starMap[x][y].object)
        for (int l = 0; l < maxPlanets; ++l)
          if (o->Planets[l] && (!planet || o->Planets[l]->MineralDensity > planet->MineralDensity))
            sx = x, sy = y, lane = l, planet = o->Planets[l];
  ASSERT_NE(planet, nullptr) << "no planet on the star map";
  MineralDepositList deposits;  // the game must lay out the same ones
  generateMineralDeposits(deposits, planet);
  const Planet p = *planet;
  clearStarMap(starMap);
  TempDir tmp;
  const std::string data = dataCopyWithSave(tmp, 2, sx, sy, 140, 2, lane);
  const auto shot = [&](int frame, const char* name) {
    return "at " + std::to_string(frame) + " screenshot " + tmp.path(name) + "\n";
  };
  const auto ctrl = [](int frame, const char* key) {
    return "at " + std::to_string(frame) + " key down " + key + " ctrl\nat " + std::to_string(frame + 1) + " key up " +
           key + " ctrl\n";
  };
  std::string script = statesAt(0, 60) + clickRow(1, 1) + clickRow(10, 0) + shot(60, "swept");  // Science, Sensors
  // The log, the message history and the frame-rate read-out each opened and closed; then Status.
  script += ctrl(62, "d") + ctrl(65, "d") + shot(70, "log") + ctrl(72, "z") + ctrl(75, "z") + shot(80, "history");
  script += ctrl(82, "r") + shot(90, "rate") + clickRow(92, 3) + "at 100 state\n";
  // Bridge, Captain, Cargo, two clicks on Iron's Up arrow, the ship's Jettison, the window's close button.
  script += clickRow(101, 4) + clickRow(110, 0) + clickRow(119, 2) + "at 128 state\n" + clickAt(130, 125, 95);
  script += clickAt(139, 125, 95) + clickAt(148, 200, 550) + "at 156 state\n";
  script += clickAt(157, 775, 20) + clickRow(166, 0) + clickRow(175, 0);  // Land, Select Site
  // The site: cell (100, 60); Select Site holds the command window still, so click it off, then Descent.
  script += clickAt(184, 125, 80) + "at 192 state\n" + shot(192, "site") + clickAt(194, 600, 270) + clickRow(203, 1);
  script += "at 257 state\nat 258 state\n" + clickRow(266, 4) + clickRow(275, 2) + clickRow(284, 0);
  // Bridge, Navigator, Maneuver: north for 40 frames, a quarter turn to the left, on for 40 more.
  script += "at 296 key down up\nat 336 key down left\nat 354 key up left\nat 386 key up up\nat 388 state\n";
  // Maneuver off, Bridge, Captain, Launch; then Bridge, Navigator, Maneuver out of orbit.
  script += "at 391 mouse down\nat 394 mouse up\n" + clickRow(398, 3) + clickRow(407, 0) + clickRow(416, 0);
  script += "at 471 state\nat 472 state\n" + clickRow(473, 4) + clickRow(482, 2) + clickRow(491, 0) + "at 502 state\n";
  const RunResult r = runScript(script, "--data " + data + " --seed 1 --log-stdout --frames 502");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 71u) << r.out;
  const auto at = [&](std::size_t i, const char* name) { return stateNumber(states[i], name); };
  const std::string &start = states[0], &swept = states[60], &status = states[61], &sited = states[64],
                    &descending = states[65], &landed = states[66], &driven = states[67], &launching = states[68],
                    &launched = states[69], &left = states[70];

  // The sweep runs for 30 frames and is counted when it ends; then the nearest deposit shows.
  std::size_t done = 0;
  while (done < 61 && at(done, "scansTaken") == 0) ++done;
  ASSERT_TRUE(done >= 30 && done <= 60) << "the sweep ended at " << done;
  for (std::size_t i = done - 29; i < done; ++i) EXPECT_EQ(at(i, "scanRunning"), 1) << "frame " << i;
  EXPECT_EQ(at(done - 30, "scanRunning") + at(done, "scanRunning"), 0) << "the sweep took more than 30 frames";
  EXPECT_EQ(stateNumber(swept, "scansTaken"), 1);
  EXPECT_EQ(stateNumber(start, "deposits"), int(deposits.size()));
  EXPECT_EQ(stateField(start, "nearestDeposit"), "null");
  EXPECT_NE(stateField(swept, "nearestDeposit"), "null");

  // The analysis the sweep fills.
  EXPECT_EQ(stateField(swept, "analysisLines"), std::string("[\"Atmosphere: ") + p.Atmos[0] + ", " + p.Atmos[1] + ", " +
                                                    p.Atmos[2] + "\",\"Hydrosphere: " + p.Hydro +
                                                    "\",\"Lithosphere: " + p.Litho[0] + ", " + p.Litho[1] + ", " +
                                                    p.Litho[2] + "\",\"Global Weather: " + p.Weather + "\"]");
  // Closing each window brings back every pane and border in that frame.
  const auto load = [&](const char* name) { return SurfacePtr(SDL_LoadBMP(tmp.path(name).c_str())); };
  const SurfacePtr readings = load("swept"), siteShot = load("site");
  ASSERT_TRUE(readings && siteShot);
  for (const char* name : {"log", "history", "rate"}) {
    const SurfacePtr after = load(name);
    ASSERT_TRUE(after) << name;
    for (const auto& [x1, y1, x2, y2] : screenBoxes)
      EXPECT_EQ(differingPixels(readings.get(), after.get(), x1, y1, x2, y2), 0) << name << " " << x1 << "," << y1;
  }
  // Science, Status shows the ship's status; choosing the site its and the pointer's coordinates.
  EXPECT_EQ(stateNumber(status, "showShipStatus"), 1);
  for (int y : {340, 370}) EXPECT_TRUE(showsText(siteShot.get(), 425, y, fontTable.fonts[2], "30'N 80'W")) << y;

  // Cargo: two of the shipped hold's 4.5 CU of Iron thrown away and nothing else, the window still open.
  std::vector<float> hold = stateFloats(states[62], "shipHold");
  ASSERT_EQ(std::pair(hold.size(), hold.at(1)), std::pair(std::size_t{22}, 4.5f));
  hold[1] = 2.5f;
  EXPECT_EQ(stateFloats(states[63], "shipHold"), hold);
  EXPECT_EQ(stateNumber(states[63], "cargoOpen"), 1);
  EXPECT_EQ(stateField(states[62], "shipHoldFree") + " " + stateField(states[63], "shipHoldFree"), "192.5 194.5");

  // Descent for 50 frames, the drive, the launch for 50 and back in orbit after 51.
  const std::pair<const std::string*, std::vector<int>> steps[] = {
      {&sited, {2, 11, 0, 0}}, {&descending, {2, 11, 1, 0}}, {&landed, {3, 2, 0, 0}},
      {&driven, {3, 4, 0, 0}}, {&launching, {3, 2, 0, 1}},   {&launched, {2, 1, 0, 0}}};
  for (const auto& [s, want] : steps)
    EXPECT_EQ((std::vector{stateNumber(*s, "mode"), stateNumber(*s, "currentMenu"), stateNumber(*s, "descentRunning"),
                           stateNumber(*s, "launchRunning")}),
              want);

  // Free space is capacity less the load, in both holds, at every step.
  const auto number = [](const std::string& s, const char* name) { return std::stof(stateField(s, name)); };
  for (const std::string& s : states) {
    EXPECT_NEAR(number(s, "roverHoldFree"), 50.0f - sum(stateFloats(s, "roverHold")), 0.02f);
    EXPECT_NEAR(number(s, "shipHoldFree"), number(start, "shipHoldCapacity") - sum(stateFloats(s, "shipHold")), 0.02f);
  }
  // The launch moved the rover's whole load into the ship, mineral by mineral.
  const std::vector<float> roverBefore = stateFloats(launching, "roverHold"),
                           shipBefore = stateFloats(launching, "shipHold"),
                           shipAfter = stateFloats(launched, "shipHold");
  ASSERT_EQ(shipAfter.size(), 22u);
  for (int m = 0; m < 22; ++m) EXPECT_NEAR(shipAfter[m], shipBefore[m] + roverBefore[m], 0.011f) << m;
  EXPECT_EQ(stateFloats(launched, "roverHold"), std::vector<float>(22, 0.0f));

  EXPECT_EQ(stateNumber(left, "mode"), 1) << "Maneuver did not leave orbit";

  if (stateNumber(start, "deposits") == 0) GTEST_SKIP() << "the planet has no deposits to collect";
  EXPECT_GT(sum(stateFloats(driven, "roverHold")), 0.0f);
  EXPECT_NE(r.out.find("Collected "), std::string::npos);
  EXPECT_GT(sum(shipAfter), sum(hold));
}
