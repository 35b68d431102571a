// Input that arrives while the game runs (`--script -`), and the state fields
// a program steering the game reads: the planets' cells, the deposit nearest
// the landing site once a sweep has shown them.
#include <gtest/gtest.h>

#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "support/test_support.h"
#include "universe/planet.h"
#include "universe/star_map.h"

TEST(LiveInput, StandardInputLinesActAtTheirFramesAndABadLineIsSkipped) {
  TempDir tmp;
  const std::string input = tmp.write("in.txt", "at 1 state\nat 2 key down e\nat 3 key up e\nat 5 state\nat x\n");
  const RunResult r = runGame("--unthrottled --frames 9 --script - <" + input);
  ASSERT_EQ(r.status, 0) << r.err;  // the input ended long before the last frame
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  EXPECT_EQ(stateNumber(states[0], "frame") * 10 + stateNumber(states[0], "configOpen"), 10);
  EXPECT_EQ(stateNumber(states[1], "frame") * 10 + stateNumber(states[1], "configOpen"), 51);
  EXPECT_NE(r.err.find("stdin:5: expected"), std::string::npos) << r.err;
}

TEST(LiveInput, StateShowsPlanetCellsAndTheNearestDepositAfterASweep) {
  ensureScreen();
  clearStarMap(starMap);
  loadStarmap(starMap);
  const StellarObject* home = starMap[100][100].object;
  ASSERT_NE(home, nullptr);
  int lane = 0;
  while (lane < maxPlanets && !(home->Planets[lane] && home->Planets[lane]->MineralDensity > 0)) ++lane;
  ASSERT_LT(lane, maxPlanets);
  // The reference: the planet's deposits, the nearest to the map centre where the site starts.
  MineralDepositList deposits;
  generateMineralDeposits(deposits, home->Planets[lane]);
  long best = -1;
  std::string nearest;
  for (const MineralDeposit& d : deposits) {
    const long distance = (d.x - 180L) * (d.x - 180L) + (d.y - 90L) * (d.y - 90L);
    if (d.amount > 0 && (best < 0 || distance < best)) {
      best = distance;
      nearest = "[" + std::to_string(d.x) + "," + std::to_string(d.y) + "," + std::to_string(int(d.kind));
    }
  }
  TempDir tmp;
  const std::string data = dataCopyWithSave(tmp, 2, 100, 100, 140, 2, lane);
  std::string script = "at 0 state\n" + clickRow(1, 1) + clickRow(10, 0) + "at 80 state\n";  // Science, Sensors
  script += clickRow(81, 4) + clickRow(90, 2) + clickRow(99, 0) + "at 110 state\n";          // Navigator, Maneuver
  const RunResult r = runScript(script, "--data " + data + " --frames 110");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 3u) << r.out;
  EXPECT_EQ(stateField(states[0], "nearestDeposit"), "null");
  EXPECT_EQ(stateField(states[1], "nearestDeposit").rfind(nearest + ",", 0), 0u) << states[1];
  // Leaving orbit puts the ship two cells right of and below its planet's cell.
  ASSERT_EQ(stateNumber(states[2], "mode"), 1);
  const std::string& left = states[2];
  const std::regex entry(R"(null|\[(-?\d+),(-?\d+)\])");
  auto it = std::sregex_iterator(left.begin() + left.find("\"PlanetCells\":[") + 15, left.end(), entry);
  std::advance(it, lane);
  EXPECT_EQ(std::stoi((*it)[1]) + 2, stateNumber(left, "sysX") / 50) << left;
  EXPECT_EQ(std::stoi((*it)[2]) + 2, stateNumber(left, "sysY") / 50) << left;
}
