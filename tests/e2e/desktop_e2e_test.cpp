// The game as a player meets it on a desktop: a mouse that floods the input, a named window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_support.h"

TEST(Desktop, AMouseFloodLeavesTheClickAndTheKeyAfterItToActInOrder) {
  // 500 motions, then a click on Engineering and E, all queued for the first frame.
  std::string script;
  for (int i = 0; i < 499; ++i) script += "at 1 mouse move " + std::to_string(i % 800) + " " + std::to_string(i) + "\n";
  script += "at 1 mouse move 600 390\nat 1 mouse down\nat 1 mouse up\nat 1 key down e\n" + statesAt(1, 4);
  const RunResult r = runScript(script, "--frames 4");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  const std::vector<std::string> states = stateLines(r.out);
  ASSERT_EQ(states.size(), 4u);
  std::vector<std::vector<int>> seen;
  for (const std::string& s : states) {
    seen.push_back({stateNumber(s, "mouseY"), stateNumber(s, "itemSelected"), stateNumber(s, "currentMenu"),
                    stateNumber(s, "configOpen")});
  }
  const int engineering = 9;  // the tenth menu: Engineering's
  EXPECT_EQ(seen, (std::vector<std::vector<int>>{{390, 0, 0, 0}, {390, 1, 0, 0}, {390, 0, engineering, 0},
                                                 {390, 0, engineering, 1}}));
}
