// The saved game, the ship and the command window, through the real game.
#include <SDL.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/test_support.h"

// The shipped saved game; a screenshot on the way and Escape ending the run early.
TEST(ShipEndToEnd, StartUpShowsTheSavedGame) {
  TempDir tmp;
  const std::string shot = tmp.path("shot.bmp");
  const RunResult r =
      runScript("at 0 state\nat 3 screenshot " + shot + "\nat 4 key down escape\n", "--frames 100 --log-stdout");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("Loading: NewGame.sav"), std::string::npos);
  EXPECT_NE(r.out.find(".\\Engines\\Kestrel.txt"), std::string::npos);
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 1u) << r.out;
  const std::string& s = states[0];
  // In Space, four cells short of the home system, at system cell (140, 2).
  const std::pair<const char*, int> numbers[] = {{"mode", 0},
                                                 {"posX", 100 * 50 + 300},
                                                 {"posY", 96 * 50 + 300},
                                                 {"sysX", 140 * 50},
                                                 {"sysY", 2 * 50},
                                                 {"engineClass", 10},
                                                 {"powerPlantClass", 8},
                                                 {"shieldMax", 999},
                                                 {"shieldCurrent", 220},
                                                 {"hullCurrent", 70},
                                                 {"armorCurrent", 500},
                                                 {"fuel", 999},
                                                 {"cargoHoldCount", 4}};
  for (const auto& [name, value] : numbers) EXPECT_EQ(stateNumber(s, name), value) << name;
  EXPECT_EQ(stateField(s, "shipName"), "\"Wandering Lark\"");
  EXPECT_EQ(stateField(s, "weapons"), "[\"PulseLaser\",\"PulseLaser\",\"MiningLaser\"]");
  // The ship's hold as saved is checked with the cargo window; the rover's starts empty.
  EXPECT_EQ(stateFloats(s, "roverHold"), std::vector<float>(22, 0.0f));
  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->w, 800);
  EXPECT_EQ(image->h, 600);
}

TEST(ShipEndToEnd, RaisingShieldsFromTheTacticalMenuChargesThem) {
  TempDir tmp;
  const std::string shot = tmp.path("command.bmp");
  // Captain, Bridge, Tactical, Raise Shields.
  const std::string script = clickRow(1, 0) + clickRow(9, 4) + clickRow(17, 3) + clickRow(25, 0) +
                             "at 32 state\nat 34 screenshot " + shot + "\nat 48 state\n";
  const RunResult r = runScript(script, "--frames 48 --log-stdout");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("\nmenu 5\n"), std::string::npos) << "Tactical with shields and weapons off";
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  for (const std::string& s : states) {
    EXPECT_EQ(stateNumber(s, "currentMenu"), 6);
    EXPECT_EQ(stateNumber(s, "itemSelected"), 0);
    EXPECT_EQ(stateNumber(s, "shieldsOnline"), 1);
    EXPECT_EQ(stateNumber(s, "weaponsOnline"), 0);
  }
  // The power plant's 8 a frame.
  const int early = stateNumber(states[0], "shieldCurrent");
  EXPECT_GT(early, 0);
  EXPECT_EQ(stateNumber(states[1], "shieldCurrent") - early, 16 * 8);

  // "Lower Shields" current with a white bullet, three grey ones, nothing below, nothing selected.
  const SurfacePtr image(SDL_LoadBMP(shot.c_str()));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelRGB(image.get(), 520, 265), 0xFFFFFFu);
  for (int row = 1; row < 4; ++row) EXPECT_EQ(pixelRGB(image.get(), 520, 265 + 30 * row), 0x808080u) << row;
  EXPECT_EQ(pixelRGB(image.get(), 520, 265 + 120), 0u);
  EXPECT_EQ(pixelRGB(image.get(), 525, 270), 0u);
}
