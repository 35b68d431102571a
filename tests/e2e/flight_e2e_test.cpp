// Flying from the shipped saved game (cell (100, 96), heading 0) north into the home
// system at (100, 100), then turning to heading 90 on the system's bottom row, away
// from every orbit, and out across the low edge of the first axis.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

// The ship's dot on the plan: (sysX / 50, 245 - sysY / 50) on the plan at (515, 5).
Uint32 dotPixel(SDL_Surface* shot, const std::string& state) {
  return pixelRGB(shot, 515 + stateNumber(state, "sysX") / 50, 5 + 245 - stateNumber(state, "sysY") / 50);
}

}  // namespace

TEST(FlightEndToEnd, FliesIntoTheHomeSystemAcrossItsPlanAndOutAgain) {
  TempDir tmp;
  const std::string script = clickRow(5, 2) + clickRow(14, 0) +  // Navigator, Maneuver
                             "at 25 key down up\nat 40 key up up\n"
                             "at 45 key down left\nat 63 key up left\n"  // 18 turns of 5 degrees
                             "at 70 key down up\n" +
                             statesAt(20, 330) + "at 66 screenshot " + tmp.path("before.bmp") + "\nat 90 screenshot " +
                             tmp.path("after.bmp") + "\n";
  const RunResult r = runScript(script, "--seed 3 --log-stdout --frames 331");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 311u);
  const auto at = [&](std::size_t i, const char* name) { return stateNumber(states[i], name); };
  EXPECT_EQ(at(0, "maneuverOn"), 1) << "Navigator, Maneuver did not engage the controls";

  // Entering puts the ship on the edge its heading faces and finds the seven planets.
  std::size_t entered = 0;
  while (entered < states.size() && at(entered, "mode") != 1) ++entered;
  ASSERT_LT(entered, states.size()) << "the ship never entered the system";
  EXPECT_EQ(at(entered, "sysX"), 140 * 50);
  EXPECT_EQ(at(entered, "sysY"), 2 * 50);
  EXPECT_EQ(at(entered, "speed"), 0);
  EXPECT_EQ((at(entered, "posX") - 300) / 50, 100);
  EXPECT_EQ((at(entered, "posY") - 300) / 50, 100);
  EXPECT_TRUE(std::regex_search(r.out, std::regex("Class: G, Ecosphere: [^\n]*, Planets: 7\n")))
      << r.out.substr(0, 3000);
  for (int lane = 0; lane < 10; ++lane)
    EXPECT_EQ(r.out.find("Planet detected at lane: " + std::to_string(lane)) != std::string::npos,
              lane != 3 && lane != 6 && lane != 8)
        << lane;

  // The plan shows the star and the ship's dot, which moves across the plan with it.
  const std::string &before = states[66 - 20], &after = states[90 - 20];
  ASSERT_EQ(stateNumber(after, "mode"), 1) << "the ship left the system too soon";
  ASSERT_GT(stateNumber(before, "sysX") / 50, stateNumber(after, "sysX") / 50 + 2) << "the ship hardly moved";
  const SurfacePtr first(SDL_LoadBMP(tmp.path("before.bmp").c_str())),
      second(SDL_LoadBMP(tmp.path("after.bmp").c_str()));
  ASSERT_TRUE(first && second);
  EXPECT_NE(pixelRGB(first.get(), 515 + 140, 5 + 122), 0u) << "no star in the middle of the plan";
  EXPECT_NE(dotPixel(first.get(), before), 0u);
  EXPECT_NE(dotPixel(second.get(), after), 0u);
  EXPECT_EQ(dotPixel(second.get(), before), 0u) << "the dot stayed where it was";

  // Leaving puts the ship beside the object, on the side it left by.
  std::size_t left = entered;
  for (; left < states.size() && at(left, "mode") == 1; ++left)
    ASSERT_EQ(at(left, "sysY") / 50, 2) << "the ship drifted off the bottom row";
  ASSERT_LT(left, states.size()) << "the ship never left the system";
  EXPECT_EQ(at(left, "mode"), 0) << "the ship went into orbit instead";
  EXPECT_EQ(at(left - 1, "heading"), 90);
  EXPECT_EQ(at(left, "posX"), 100 * 50 + 250);
  EXPECT_EQ(at(left, "posY"), 100 * 50 + 300);
  EXPECT_LE(at(left, "speed"), 2);  // Up, still held, gave one step since the stop
  EXPECT_LT(at(states.size() - 1, "posX"), 100 * 50 + 250);
}
