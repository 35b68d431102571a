// Input that arrives while the game runs (`--script -`).
#include "support/test_support.h"

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
