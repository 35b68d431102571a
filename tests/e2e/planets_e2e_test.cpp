#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/screen.h"
#include "support/test_support.h"

namespace {

constexpr int homeLanes[] = {0, 1, 2, 4, 5, 7, 9};
// The home planets' view sizes: gravity below 2 g gives zoom 0.5, lane 7's 2.53 g zoom 0.6.
int homeViewSize(int lane) { return lane == 7 ? 108 : 90; }

// Each lane's orbit angle from a state line's "OrbitAngles" list (-1 for an empty lane).
std::vector<int> orbitAnglesOf(const std::string& state) {
  const std::string list = stateField(stateField(state, "currentObject"), "OrbitAngles");
  std::vector<int> angles;
  std::stringstream in(list.substr(1, list.size() - 2));
  for (std::string item; std::getline(in, item, ',');) angles.push_back(std::stoi(item));
  return angles;
}

// A data directory like the built one but for its saved game, which starts in
// the home system with the ship at plane cell (u, v).
class SavedInSystem {
 public:
  SavedInSystem(int u, int v) {
    for (const auto& entry : std::filesystem::directory_iterator(PROSPECTOR_DATA_DIR))
      if (entry.path().filename() != "NewGame.sav")
        std::filesystem::create_symlink(entry.path(), std::filesystem::path(dir_.dir()) / entry.path().filename());
    std::ifstream shipped(std::string(PROSPECTOR_DATA_DIR) + "/NewGame.sav");
    std::string save, line;
    const std::vector<std::string> header = {"", "", "100", "100", std::to_string(u), std::to_string(v), "0", "1"};
    for (std::size_t field = 0; std::getline(shipped, line);) {
      if (!line.empty() && line[0] == '#') continue;
      save += (field < header.size() && !header[field].empty() ? header[field] : line) + "\n";
      ++field;
    }
    dir_.write("NewGame.sav", save);
  }
  std::string run(int frames, const std::string& script) const {
    const RunResult r = runGame("--data '" + dir_.dir() + "' --unthrottled --seed 3 --log-stdout --frames " +
                                std::to_string(frames) + " --script " + dir_.write("s.txt", script));
    EXPECT_EQ(r.status, 0) << r.err;
    return r.out;
  }
  std::string path(const char* name) const { return dir_.path(name); }

 private:
  TempDir dir_;
};

}  // namespace

// Flying into the home system finds its seven planets; from a saved game next to
// each one, the planet's globe is drawn inside its green square at its orbit angle.
TEST(PlanetsEndToEnd, HomePlanetsAreDetectedAndDrawnInTheirSquares) {
  fillTrigTables();
  TempDir tmp;
  std::string script = clickRow(5, 2) + clickRow(14, 0) + "at 25 key down up\nat 40 key up up\n";
  for (int frame = 20; frame <= 120; ++frame) script += "at " + std::to_string(frame) + " state\n";
  const RunResult flown =
      runGame("--unthrottled --seed 3 --log-stdout --frames 121 --script " + tmp.write("fly.txt", script));
  ASSERT_EQ(flown.status, 0) << flown.err;
  for (int lane : homeLanes)
    EXPECT_NE(flown.out.find("Planet detected at lane: " + std::to_string(lane)), std::string::npos) << lane;
  for (int lane : {3, 6, 8})
    EXPECT_EQ(flown.out.find("Planet detected at lane: " + std::to_string(lane)), std::string::npos);
  std::vector<int> angles;
  for (const std::string& state : stateLines(flown.out))
    if (stateNumber(state, "mode") == 1) {
      angles = orbitAnglesOf(state);
      break;
    }
  ASSERT_EQ(angles.size(), 10u) << "the ship never entered the home system";

  for (int lane : homeLanes) {
    const int a = angles[std::size_t(lane)];
    ASSERT_TRUE(a >= 0 && a < 360) << lane;
    const double u = 10 * lane * sinTable[a] + 140 + 20 * sinTable[a];
    const double v = 122 - 10 * lane * cosTable[a] - 20 * cosTable[a];
    // Three cells east of the planet, on a cell that holds no planet (or it would be entered).
    int su = int(u) + 3, sv = int(v);
    auto onPlanet = [&](int cu, int cv) {
      for (int other : homeLanes) {
        const int b = angles[std::size_t(other)];
        if (int(10 * other * sinTable[b] + 140 + 20 * sinTable[b]) == cu &&
            int(122 - 10 * other * cosTable[b] - 20 * cosTable[b]) == cv)
          return true;
      }
      return false;
    };
    while (onPlanet(su, sv)) ++sv;
    SavedInSystem saved(su, sv);
    const std::string out = saved.run(3, "at 2 screenshot " + saved.path("shot.bmp") + "\nat 2 state\n");
    const std::vector<std::string> states = stateLines(out);
    ASSERT_EQ(states.size(), 1u) << out.substr(0, 2000);
    ASSERT_EQ(stateNumber(states[0], "mode"), 1) << "the saved game should stay in the system";
    ASSERT_EQ(orbitAnglesOf(states[0]), angles) << "the same seed gives the same orbit angles";
    SurfacePtr shot(SDL_LoadBMP(saved.path("shot.bmp").c_str()));
    ASSERT_TRUE(shot);

    // The planet's centre on the screen: the pane at (5, 5) shows the plane 50 times magnified.
    const double px = (u - su + 5) * 50, py = 500 - (v - sv + 5) * 50;
    const int size = homeViewSize(lane);
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
