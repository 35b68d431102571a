// From a saved game in the home system next to each of its planets, the planet's
// globe is drawn inside its green square at its orbit angle.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "base/screen.h"
#include "support/test_support.h"

namespace {

// Each lane's orbit angle from a state line's "OrbitAngles" list (-1 for an empty lane).
std::vector<int> orbitAnglesOf(const std::string& state) {
  const std::string list = stateField(stateField(state, "currentObject"), "OrbitAngles");
  std::vector<int> angles;
  std::stringstream in(list.substr(1, list.size() - 2));
  for (std::string item; std::getline(in, item, ',');) angles.push_back(std::stoi(item));
  return angles;
}

// In the home system at plane cell (u, v): the state and a screenshot.
std::string runInSystem(const TempDir& tmp, int u, int v) {
  const std::string data = dataCopyWithSave(tmp, 1, 100, 100, u, v, 0);
  const RunResult r = runScript("at 2 screenshot " + tmp.path("shot.bmp") + "\nat 2 state\n",
                                "--data " + data + " --seed 3 --frames 3");
  EXPECT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  EXPECT_EQ(states.size(), 1u) << r.out.substr(0, 2000);
  if (states.size() != 1) return "";
  EXPECT_EQ(stateNumber(states[0], "mode"), 1) << "the saved game should stay in the system";
  return states[0];
}

}  // namespace

TEST(PlanetsEndToEnd, HomePlanetsAreDrawnInTheirSquares) {
  fillTrigTables();
  constexpr int homeLanes[] = {0, 1, 2, 4, 5, 7, 9};
  std::vector<int> angles;
  {
    TempDir tmp;  // the bottom row, which no orbit reaches
    angles = orbitAnglesOf(runInSystem(tmp, 140, 2));
  }
  ASSERT_EQ(angles.size(), 10u);
  const auto cellOf = [&](int lane) {
    const int a = angles[std::size_t(lane)];
    return std::pair<double, double>(10 * lane * sinTable[a] + 140 + 20 * sinTable[a],
                                     122 - 10 * lane * cosTable[a] - 20 * cosTable[a]);
  };
  for (int lane : homeLanes) {
    const int a = angles[std::size_t(lane)];
    ASSERT_TRUE(a >= 0 && a < 360) << lane;
    const auto [u, v] = cellOf(lane);
    // Three cells east of the planet, on a cell that holds no planet (or it would be entered).
    int su = int(u) + 3, sv = int(v);
    auto onPlanet = [&](int cu, int cv) {
      for (int other : homeLanes)
        if (int(cellOf(other).first) == cu && int(cellOf(other).second) == cv) return true;
      return false;
    };
    while (onPlanet(su, sv)) ++sv;
    TempDir tmp;
    const std::string state = runInSystem(tmp, su, sv);
    ASSERT_EQ(orbitAnglesOf(state), angles) << "the same seed gives the same orbit angles";
    SurfacePtr shot(SDL_LoadBMP(tmp.path("shot.bmp").c_str()));
    ASSERT_TRUE(shot);

    // The planet's centre on the screen: the pane at (5, 5) shows the plane 50 times magnified.
    // Gravity below 2 g gives zoom 0.5, lane 7's 2.53 g zoom 0.6.
    const double px = (u - su + 5) * 50, py = 500 - (v - sv + 5) * 50;
    const int size = lane == 7 ? 108 : 90;
    const int left = 5 + int(px - size / 2), top = 5 + int(py - size / 2);
    SCOPED_TRACE("lane " + std::to_string(lane) + " at angle " + std::to_string(a));
    EXPECT_EQ(pixelRGB(shot.get(), 5 + int(px - 25), 5 + int(py - 25)), 0x00FF80u) << "square corner";
    EXPECT_EQ(pixelRGB(shot.get(), 5 + int(px + 25), 5 + int(py + 25)), 0x00FF80u) << "square corner";
    EXPECT_EQ(pixelRGB(shot.get(), left, top), 0u) << "the globe's corner is black";
    EXPECT_EQ(pixelRGB(shot.get(), left + size / 2, top), 0u) << "the pole row is black";
    int lit = 0;
    for (int x = left; x < left + size; ++x) lit += pixelRGB(shot.get(), x, top + size / 2) != 0;
    EXPECT_GE(lit, size - 2) << "the equator spans the whole image";
    EXPECT_NE(pixelRGB(shot.get(), 5 + int(px), 5 + int(py) + 10), 0u) << "the disc is coloured";
  }
}
