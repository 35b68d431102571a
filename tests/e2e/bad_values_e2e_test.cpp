// Bad values in a saved game, through the real game: they are turned away with
// a message and never reach the state the game shows.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_support.h"

TEST(BadValuesEndToEnd, ASavedSystemCellPastAnEdgeLeavesTheSystemOnTheFirstFrame) {
  // The home star is at (100, 100); the ship comes out beside it on the side it left by.
  const struct {
    int u, v, posX, posY;
  } cases[] = {{281, 122, 100 * 50 + 350, 100 * 50 + 300},
               {-1, 122, 100 * 50 + 250, 100 * 50 + 300},
               {140, 246, 100 * 50 + 300, 100 * 50 + 350},
               {140, -1, 100 * 50 + 300, 100 * 50 + 250},
               {9999, 122, 100 * 50 + 350, 100 * 50 + 300}};
  for (const auto& c : cases) {
    SCOPED_TRACE("system cell " + std::to_string(c.u) + ", " + std::to_string(c.v));
    TempDir tmp;
    const std::string data = dataCopyWithSave(tmp, 1, 100, 100, c.u, c.v, 0);
    const RunResult r = runScript("at 0 state\nat 1 state\n", "--frames 2 --data '" + data + "'");
    ASSERT_EQ(r.status, 0) << r.err;
    const std::vector<std::string> states = stateLines(r.out);
    ASSERT_EQ(states.size(), 2u) << r.out;
    EXPECT_EQ(stateNumber(states[0], "mode"), 1) << "the saved system was not entered";
    EXPECT_EQ(stateNumber(states[1], "mode"), 0) << "the ship did not leave the system";
    EXPECT_EQ(stateNumber(states[1], "posX"), c.posX);
    EXPECT_EQ(stateNumber(states[1], "posY"), c.posY);
  }
}

TEST(BadValuesEndToEnd, NonFiniteHoldAmountsNeverReachTheState) {
  TempDir tmp;
  const std::string data = dataCopyWithSave(tmp, 0, 100, 100, 140, 2, 0, "nan, 4.5, inf, 1e39, -inf", "-nan 50");
  const RunResult r = runScript("at 0 state\nat 1 state\n", "--frames 1 --log-stdout --data '" + data + "'");
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
