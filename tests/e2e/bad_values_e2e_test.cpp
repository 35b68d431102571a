// Bad values in a saved game or a script, through the real game: they are
// turned away with a message and never reach the state the game shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace {

// A data directory that is the built one but for its saved game.
std::string dataWithSavedGame(const TempDir& tmp, const std::string& savedGame) {
  const std::filesystem::path dir = tmp.path("data");
  std::filesystem::create_directories(dir);
  for (const auto& entry : std::filesystem::directory_iterator(PROSPECTOR_DATA_DIR)) {
    if (entry.path().filename() != "NewGame.sav")
      std::filesystem::create_directory_symlink(entry.path(), dir / entry.path().filename());
  }
  tmp.write("data/NewGame.sav", savedGame);
  return dir.string();
}

// The shipped ship and components in the home system's cell (100, 100), with a
// system cell, a mode and the two hold lines.
std::string savedGame(const std::string& systemCell, int mode, const std::string& shipHold,
                      const std::string& roverHold = "0") {
  return "Surveyor\nWandering Lark\n100\n100\n" + systemCell + "\n0\n" + std::to_string(mode) +
         "\nKestrel\nAegis\nHelion\nPulseLaser\nPulseLaser\nMiningLaser\n" + shipHold + "\n" + roverHold + "\n";
}

}  // namespace

TEST(BadValuesEndToEnd, ASavedSystemCellPastAnEdgeLeavesTheSystemOnTheFirstFrame) {
  // The home star is at (100, 100); the ship comes out beside it on the side it left by.
  const struct {
    const char* cell;
    int posX, posY;
  } cases[] = {{"281\n122", 100 * 50 + 350, 100 * 50 + 300},
               {"-1\n122", 100 * 50 + 250, 100 * 50 + 300},
               {"140\n246", 100 * 50 + 300, 100 * 50 + 350},
               {"140\n-1", 100 * 50 + 300, 100 * 50 + 250},
               {"9999\n122", 100 * 50 + 350, 100 * 50 + 300}};
  for (const auto& c : cases) {
    TempDir tmp;
    const std::string data = dataWithSavedGame(tmp, savedGame(c.cell, 1, "0"));
    const RunResult r = runGame("--unthrottled --frames 2 --data '" + data + "' --script " +
                                tmp.write("s.txt", "at 0 state\nat 1 state\n"));
    ASSERT_EQ(r.status, 0) << c.cell << "\n" << r.err;
    const std::vector<std::string> states = stateLines(r.out);
    ASSERT_EQ(states.size(), 2u) << r.out;
    EXPECT_EQ(stateNumber(states[0], "mode"), 1) << c.cell << ": the saved system was not entered";
    EXPECT_EQ(stateNumber(states[1], "mode"), 0) << c.cell << ": the ship did not leave the system";
    EXPECT_EQ(stateNumber(states[1], "posX"), c.posX) << c.cell;
    EXPECT_EQ(stateNumber(states[1], "posY"), c.posY) << c.cell;
  }
}

TEST(BadValuesEndToEnd, NonFiniteHoldAmountsNeverReachTheState) {
  TempDir tmp;
  const std::string data = dataWithSavedGame(tmp, savedGame("140\n2", 0, "nan, 4.5, inf, 1e39, -inf", "-nan 50"));
  const RunResult r = runGame("--unthrottled --frames 1 --log-stdout --data '" + data + "' --script " +
                              tmp.write("s.txt", "at 0 state\nat 1 state\n"));
  ASSERT_EQ(r.status, 0) << r.err;
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 2u) << r.out;
  for (const std::string& s : states) {
    EXPECT_EQ(s.find("nan"), std::string::npos) << s;
    EXPECT_EQ(s.find("inf"), std::string::npos) << s;
    EXPECT_EQ(stateField(s, "shipHold").substr(0, 26), "[0.00,4.50,0.00,0.00,0.00,");
    EXPECT_EQ(stateField(s, "shipHoldFree"), "195.5");  // four holds of 50 CU less 4.5
    EXPECT_EQ(stateField(s, "roverHoldFree"), "0");
  }
  EXPECT_NE(r.out.find("NewGame.sav line 15: ship's hold amount nan is not 0 to 200.00 CU; slot 1 left empty"),
            std::string::npos)
      << r.out.substr(0, 3000);
  EXPECT_NE(r.out.find("NewGame.sav line 16: rover's hold amount -nan is not 0 to 50.00 CU"), std::string::npos);
}

TEST(BadValuesEndToEnd, AScriptNamingNoRealKeyStopsBeforeTheWindowOpens) {
  TempDir tmp;
  const RunResult r = runGame("--unthrottled --frames 5 --script " +
                              tmp.write("keys.txt", "at 1 key down up\nat 2 key down unknown_key\n"));
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("keys.txt:2: expected a key name or number, not 'unknown_key'"), std::string::npos) << r.err;
  EXPECT_EQ(stateLines(r.out).size(), 0u);
}
