#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

// The few fields of a `state` line this flight needs.
struct FlightState {
  long line = 0;
  int mode = -1, posX = 0, posY = 0, sysX = 0, sysY = 0, heading = 0, speed = 0, maneuverOn = 0;
};

int field(const std::string& json, const char* name) {
  const std::regex pattern(std::string("\"") + name + "\":(-?[0-9]+)");
  std::smatch m;
  if (!std::regex_search(json, m, pattern)) ADD_FAILURE() << "no " << name << " in " << json.substr(0, 200);
  return m.empty() ? 0 : std::stoi(m[1]);
}

std::vector<FlightState> statesOf(const std::string& out) {
  std::vector<FlightState> states;
  std::istringstream lines(out);
  std::string line;
  long number = 0;
  while (std::getline(lines, line)) {
    ++number;
    if (line.rfind("STATE ", 0) != 0) continue;
    FlightState s;
    s.line = number;
    s.mode = field(line, "mode");
    s.posX = field(line, "posX");
    s.posY = field(line, "posY");
    s.sysX = field(line, "sysX");
    s.sysY = field(line, "sysY");
    s.heading = field(line, "heading");
    s.speed = field(line, "speed");
    s.maneuverOn = field(line, "maneuverOn");
    states.push_back(s);
  }
  return states;
}

// A click on command window row r: move, press and release a few frames apart.
std::string clickRow(int frame, int row) {
  const int y = 260 + 30 * row + 10;
  std::ostringstream s;
  s << "at " << frame << " mouse move 600 " << y << "\n"
    << "at " << frame + 3 << " mouse down\n"
    << "at " << frame + 6 << " mouse up\n";
  return s.str();
}

}  // namespace

// From the shipped saved game (cell (100, 96), heading 0) the ship flies north into
// the system at (100, 100), turns to heading 90 on the system's bottom row, away from
// every orbit, and flies out across the low edge of the first axis.
TEST(FlightEndToEnd, FliesIntoTheHomeSystemAndOutAgain) {
  TempDir tmp;
  std::string script = clickRow(5, 2) + clickRow(14, 0);  // Navigator, then Maneuver
  script +=
      "at 25 key down up\n"
      "at 40 key up up\n"  // let go as the ship reaches the system
      "at 45 key down left\n"
      "at 63 key up left\n"  // 18 turns of 5 degrees
      "at 70 key down up\n";
  for (int frame = 20; frame <= 330; ++frame) script += "at " + std::to_string(frame) + " state\n";
  const RunResult r =
      runGame("--unthrottled --seed 7 --log-stdout --frames 331 --script " + tmp.write("flight.txt", script));
  ASSERT_EQ(r.status, 0) << r.err;

  const std::vector<FlightState> states = statesOf(r.out);
  ASSERT_EQ(states.size(), 311u);
  EXPECT_EQ(states.front().maneuverOn, 1) << "Navigator, Maneuver did not engage the controls";

  // Entering: the first System frame puts the ship on the edge its heading faces.
  std::size_t entered = 0;
  while (entered < states.size() && states[entered].mode != 1) ++entered;
  ASSERT_LT(entered, states.size()) << "the ship never entered the system";
  EXPECT_EQ(states[entered].sysX, 140 * 50);
  EXPECT_EQ(states[entered].sysY, 2 * 50);
  EXPECT_EQ(states[entered].speed, 0);
  EXPECT_EQ(states[entered].heading, 0);
  EXPECT_EQ((states[entered].posX - 300) / 50, 100);
  EXPECT_EQ((states[entered].posY - 300) / 50, 100);
  // The message strip announces the system; the strip's lines reach the debug log.
  const std::string& out = r.out;
  const std::size_t entryLine = out.find("Class: G, Ecosphere: ");
  ASSERT_NE(entryLine, std::string::npos) << out.substr(0, 3000);
  EXPECT_TRUE(std::regex_search(out, std::regex("Class: G, Ecosphere: [^\n]*, Planets: 7\n")));

  // Leaving: the first Space frame after the system puts the ship beside the object,
  // on the side it left by.
  std::size_t left = entered;
  while (left < states.size() && states[left].mode == 1) {
    EXPECT_EQ(states[left].sysY / 50, 2) << "the ship drifted off the bottom row";
    ++left;
  }
  ASSERT_LT(left, states.size()) << "the ship never left the system; last sysX " << states.back().sysX;
  EXPECT_EQ(states[left].mode, 0) << "the ship went into orbit instead";
  EXPECT_EQ(states[left - 1].heading, 90);
  EXPECT_EQ(states[left].posX, 100 * 50 + 250);
  EXPECT_EQ(states[left].posY, 100 * 50 + 300);
  EXPECT_LE(states[left].speed, 2);  // stopped at the edge; Up, still held, gave one step since
  // And it flies on over the star map, away from the object.
  EXPECT_LT(states.back().posX, 100 * 50 + 250);
  EXPECT_EQ(states.back().mode, 0);
}
