// From the shipped saved game (cell (100, 96), heading 0): the configuration window opened and closed, the shields
// raised, then the flight north into the home system at (100, 100) and a turn to heading 90 on its bottom row.
#include "support/test_support.h"

TEST(FlightEndToEnd, SavedShipConfigShieldsAndAFlightThroughTheHomeSystem) {
  TempDir tmp;
  const auto shot = [&](int frame, const char* name) {
    return "at " + std::to_string(frame) + " screenshot " + tmp.path(name) + "\n";
  };
  // E, a click on the Surveyor's port engine marker ((215, 470) on the schematic), " X ".
  std::string script = "at 0 state\nat 1 key down e\nat 2 key up e\n" + clickAt(4, 225, 520) + "at 11 state\n" +
                       clickAt(12, 775, 20) + "at 20 state\n";
  // Tactical, Raise Shields; Bridge, Navigator, Maneuver.
  script += clickRow(21, 3) + clickRow(29, 0) + "at 36 state\nat 52 state\n";
  script += clickRow(40, 3) + clickRow(48, 2) + clickRow(56, 0);
  script += "at 70 key down up\nat 85 key up up\nat 90 key down left\nat 108 key up left\nat 115 key down up\n" +
            statesAt(65, 135) + shot(111, "before.bmp") + shot(135, "after.bmp");
  const RunResult r = runScript(script, "--seed 3 --log-stdout --frames 136");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> all = stateLines(r.out);
  ASSERT_EQ(all.size(), 76u);
  const std::vector<std::string> early(all.begin(), all.begin() + 5), states(all.begin() + 5, all.end());

  // The saved game: in Space four cells short of the home system, at system cell (140, 2).
  const std::pair<const char*, int> saved[] = {
      {"mode", 0},           {"posX", 100 * 50 + 300}, {"posY", 96 * 50 + 300}, {"sysX", 140 * 50},
      {"sysY", 2 * 50},      {"engineClass", 10},      {"powerPlantClass", 8},  {"shieldMax", 999},
      {"hullCurrent", 70},   {"armorCurrent", 500},    {"fuel", 999},           {"cargoHoldCount", 4},
      {"shieldCurrent", 220}};
  for (const auto& [name, value] : saved) EXPECT_EQ(stateNumber(early[0], name), value) << name;
  EXPECT_EQ(stateField(early[0], "shipName"), "\"Wandering Lark\"");
  EXPECT_EQ(stateField(early[0], "weapons"), "[\"PulseLaser\",\"PulseLaser\",\"MiningLaser\"]");
  // On its cell's low edge the ship is still in that cell once frames run.
  EXPECT_EQ(std::pair(stateNumber(early[1], "sectorX"), stateNumber(early[1], "sectorY")), std::pair(100, 96));

  // The configuration window with the engine selected, then closed.
  EXPECT_EQ((std::vector{stateNumber(early[1], "configOpen"), stateNumber(early[1], "selectedComponent"),
                         stateNumber(early[2], "configOpen"), stateNumber(early[2], "selectedComponent")}),
            (std::vector{1, 1, 0, 0}));
  const SurfacePtr first(SDL_LoadBMP(tmp.path("before.bmp").c_str())),
      second(SDL_LoadBMP(tmp.path("after.bmp").c_str()));
  ASSERT_TRUE(first && second);

  // Shields raised: the Tactical menu of shields on.
  EXPECT_EQ(std::tuple(stateNumber(early[3], "currentMenu"), stateNumber(early[3], "shieldsOnline"),
                       stateNumber(early[3], "weaponsOnline"), stateNumber(early[4], "shieldsOnline")),
            std::tuple(6, 1, 0, 1));

  // Entering puts the ship on the edge its heading faces and finds the seven planets.
  const auto at = [&](std::size_t i, const char* name) { return stateNumber(states[i], name); };
  std::size_t entered = 0;
  while (entered < states.size() && at(entered, "mode") != 1) ++entered;
  ASSERT_LT(entered, states.size()) << "the ship never entered the system";
  EXPECT_EQ(std::tuple(at(entered, "sysX"), at(entered, "sysY"), at(entered, "speed")), std::tuple(140 * 50, 100, 0));
  EXPECT_EQ(std::pair((at(entered, "posX") - 300) / 50, (at(entered, "posY") - 300) / 50), std::pair(100, 100));
  EXPECT_TRUE(std::regex_search(r.out, std::regex("Class: G, Ecosphere: [^\n]*, Planets: 7\n")));

  // The plan at (515, 5) shows the star and the ship's dot, which moves across it with the ship.
  const std::string &before = states[111 - 65], &after = states[135 - 65];
  const auto dot = [](SDL_Surface* shot, const std::string& s) {
    return pixelRGB(shot, 515 + stateNumber(s, "sysX") / 50, 250 - stateNumber(s, "sysY") / 50);
  };
  ASSERT_GT(stateNumber(before, "sysX") / 50, stateNumber(after, "sysX") / 50 + 2) << "the ship hardly moved";
  EXPECT_NE(pixelRGB(first.get(), 515 + 140, 5 + 122), 0u) << "no star in the middle of the plan";
  EXPECT_NE(dot(first.get(), before), 0u);
  EXPECT_NE(dot(second.get(), after), 0u);
  EXPECT_EQ(dot(second.get(), before), 0u) << "the dot stayed where it was";

  // The same seed, from three cells below lane 0, flies into its orbit with the configuration window open: orbit
  // shows its panes inside whole borders, no piece of the window left, the first three boxes not blank.
  int px = 0, py = 0;
  ASSERT_EQ(std::sscanf(stateField(states[entered], "PlanetCells").c_str(), "[[%d,%d", &px, &py), 2);
  ASSERT_GE(py, 3) << "lane 0 lies too low to approach from below";
  script = clickRow(5, 2) + clickRow(14, 0) + "at 25 key down e\nat 26 key up e\nat 30 key down up\nat 90 state\n";
  const RunResult c =
      runScript(script + shot(90, "captured.bmp"),
                "--data '" + dataCopyWithSave(tmp, 1, 100, 100, px, py - 3, 0) + "' --seed 3 --frames 91");
  ASSERT_EQ(c.status, 0) << c.err;
  const std::string captured = stateLines(c.out).at(0);
  ASSERT_EQ(std::pair(stateNumber(captured, "mode"), stateNumber(captured, "configOpen")), std::pair(2, 1));
  const SurfacePtr shown(SDL_LoadBMP(tmp.path("captured.bmp").c_str()));
  ASSERT_TRUE(shown);
  for (int b = 0; b < 6; ++b) {
    const auto [x1, y1, x2, y2] = screenBoxes[b];
    EXPECT_TRUE(b < 3 ? litPixels(shown.get(), x1, y1, x2, y2) > 0
                      : differingPixels(first.get(), shown.get(), x1, y1, x2, y2) == 0)
        << b;
  }
}
