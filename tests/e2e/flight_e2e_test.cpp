#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "support/test_support.h"

// From the shipped saved game (cell (100, 96), heading 0) the ship flies north into
// the system at (100, 100), turns to heading 90 on the system's bottom row, away from
// every orbit, and flies out across the low edge of the first axis.
TEST(FlightEndToEnd, FliesIntoTheHomeSystemAndOutAgain) {
  TempDir tmp;
  std::string script = clickRow(5, 2) + clickRow(14, 0) +  // Navigator, Maneuver
                       "at 25 key down up\nat 40 key up up\n"
                       "at 45 key down left\nat 63 key up left\n"  // 18 turns of 5 degrees
                       "at 70 key down up\n";
  for (int frame = 20; frame <= 330; ++frame) script += "at " + std::to_string(frame) + " state\n";
  const RunResult r =
      runGame("--unthrottled --seed 7 --log-stdout --frames 331 --script " + tmp.write("flight.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 311u);
  const auto at = [&](std::size_t i, const char* name) { return stateNumber(states[i], name); };
  EXPECT_EQ(at(0, "maneuverOn"), 1) << "Navigator, Maneuver did not engage the controls";

  // Entering puts the ship on the edge its heading faces.
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
