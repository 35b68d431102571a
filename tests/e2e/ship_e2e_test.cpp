// The saved game, the ship and the command window, through the real game.
#include <SDL.h>
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

std::vector<std::string> stateLines(const std::string& out) {
  std::vector<std::string> lines;
  std::size_t pos = 0;
  while ((pos = out.find("STATE {", pos)) != std::string::npos) {
    const std::size_t end = out.find('\n', pos);
    lines.push_back(out.substr(pos, end == std::string::npos ? std::string::npos : end - pos));
    pos = end;
  }
  return lines;
}

// The text after "name": up to the next comma or closing brace.
std::string field(const std::string& state, const std::string& name) {
  const std::regex pattern("\"" + name + "\":(\\[[^\\]]*\\]|\"[^\"]*\"|[^,}]*)");
  std::smatch match;
  return std::regex_search(state, match, pattern) ? match[1].str() : "(missing)";
}

int number(const std::string& state, const std::string& name) { return std::stoi(field(state, name)); }

// Moves onto a row of the command pane, presses and releases, a few frames apart.
std::string clickRow(int frame, int row) {
  const std::string y = std::to_string(260 + 30 * row + 10);
  return "at " + std::to_string(frame) + " mouse move 600 " + y + "\n" + "at " + std::to_string(frame + 2) +
         " mouse down\n" + "at " + std::to_string(frame + 4) + " mouse up\n";
}

}  // namespace

TEST(ShipEndToEnd, StartUpShowsTheSavedGame) {
  TempDir tmp;
  const std::string script = tmp.write("s.txt", "at 0 state\n");
  const RunResult r = runGame("--unthrottled --frames 1 --log-stdout --script " + script);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("Loading: NewGame.sav"), std::string::npos);
  EXPECT_NE(r.out.find("Load and cache player object: Prospector"), std::string::npos);
  EXPECT_NE(r.out.find(".\\Engines\\Kestrel.txt"), std::string::npos);
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 1u) << r.out;
  const std::string& s = states[0];
  // In Space, four cells short of the home system, at system cell (140, 2).
  EXPECT_EQ(number(s, "mode"), 0);
  EXPECT_EQ(number(s, "posX"), 100 * 50 + 300);
  EXPECT_EQ(number(s, "posY"), 96 * 50 + 300);
  EXPECT_EQ(number(s, "sectorX"), 100);
  EXPECT_EQ(number(s, "sectorY"), 96);
  EXPECT_EQ(number(s, "sysX"), 140 * 50);
  EXPECT_EQ(number(s, "sysY"), 2 * 50);
  EXPECT_EQ(number(s, "currentPlanet"), 0);
  EXPECT_EQ(field(s, "shipClass"), "\"Prospector\"");
  EXPECT_EQ(field(s, "shipName"), "\"Wandering Lark\"");
  EXPECT_EQ(field(s, "weapons"), "[\"PulseLaser\",\"PulseLaser\",\"MiningLaser\"]");
  // The component files replaced the saved game's classes of 10 where they differ.
  EXPECT_EQ(number(s, "engineClass"), 10);
  EXPECT_EQ(number(s, "shieldClass"), 10);
  EXPECT_EQ(number(s, "powerPlantClass"), 8);
  EXPECT_EQ(number(s, "shieldMax"), 999);
  EXPECT_EQ(number(s, "shieldCurrent"), 220);
  EXPECT_EQ(number(s, "hullMax"), 100);
  EXPECT_EQ(number(s, "hullCurrent"), 70);
  EXPECT_EQ(number(s, "armorCurrent"), 500);
  EXPECT_EQ(number(s, "fuel"), 999);
  EXPECT_EQ(number(s, "cargoHoldCount"), 4);
  EXPECT_EQ(field(s, "shipHoldCapacity"), "200");
  EXPECT_EQ(field(s, "shipHoldFree"), "192.5");
  EXPECT_EQ(field(s, "roverHoldFree"), "50");
  EXPECT_EQ(field(s, "shipHold"),
            "[0.00,4.50,0.00,0.00,2.25,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.75,0.00,0.00,0.00,"
            "0.00]");
  std::string emptyHold = "[0.00";
  for (int i = 1; i < 22; ++i) emptyHold += ",0.00";
  EXPECT_EQ(field(s, "roverHold"), emptyHold + "]");
  EXPECT_EQ(number(s, "currentMenu"), 0);
  EXPECT_EQ(number(s, "itemSelected"), 0);
}

TEST(ShipEndToEnd, RaisingShieldsFromTheTacticalMenuChargesThem) {
  TempDir tmp;
  const std::string shot = tmp.path("command.bmp");
  const std::string script = tmp.write("s.txt", clickRow(1, 0) +       // Captain
                                                    clickRow(7, 4) +   // Bridge
                                                    clickRow(13, 3) +  // Tactical
                                                    clickRow(19, 0) +  // Raise Shields
                                                    "at 24 state\n"
                                                    "at 26 screenshot " +
                                                    shot +
                                                    "\n"
                                                    "at 40 state\n");
  const RunResult r = runGame("--unthrottled --frames 40 --log-stdout --script " + script);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("\nmenu 5\n"), std::string::npos) << "Tactical with shields and weapons off";
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  for (const std::string& s : states) {
    EXPECT_EQ(number(s, "currentMenu"), 6);
    EXPECT_EQ(number(s, "currentItem"), 0);
    EXPECT_EQ(number(s, "itemSelected"), 0);
    EXPECT_EQ(number(s, "shieldsOnline"), 1);
    EXPECT_EQ(number(s, "weaponsOnline"), 0);
  }
  // The shields drained while they were off, and charge by the power plant's 8 a frame now.
  const int early = number(states[0], "shieldCurrent"), late = number(states[1], "shieldCurrent");
  EXPECT_GT(early, 0);
  EXPECT_EQ(late - early, 16 * 8);

  // The command window shows the shield menu: "Lower Shields" current with a
  // white bullet, three grey bullets, nothing below the fourth row.
  SDL_Surface* image = SDL_LoadBMP(shot.c_str());
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(pixelRGB(image, 515 + 5, 260 + 5), 0xFFFFFFu);
  for (int row = 1; row < 4; ++row) EXPECT_EQ(pixelRGB(image, 515 + 5, 260 + 30 * row + 5), 0x808080u) << row;
  EXPECT_EQ(pixelRGB(image, 515 + 5, 260 + 30 * 4 + 5), 0u);
  EXPECT_EQ(pixelRGB(image, 515 + 10, 260 + 10), 0u) << "nothing is selected";
  SDL_FreeSurface(image);
}
