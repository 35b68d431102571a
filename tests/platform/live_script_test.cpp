#include "platform/live_script.h"

#include <unistd.h>

#include "support/test_support.h"

static std::string summary(const std::vector<ScriptCommand>& script) {
  std::string out;
  for (const ScriptCommand& c : script) out += std::to_string(c.frame) + ":" + std::to_string(c.line) + " ";
  return out;
}

TEST(LiveScript, LinesCutAnywhereKeepOrderLateOnesKeepTheirSpacing) {
  LiveScript live(-1, "/shots");
  std::vector<ScriptCommand> script(2);
  script[0].frame = 3;  // already done
  script[1].frame = 50;
  live.feed("at 60 state\nat 40 mo", script, 1, 10);
  live.feed("use down\nat 40 screenshot a.bmp\nbad\n", script, 1, 10);
  EXPECT_EQ(summary(script), "3:0 40:2 40:3 50:0 60:1 ");
  EXPECT_EQ(script[2].file, "/shots/a.bmp");
  std::vector<ScriptCommand> late;  // past lines act at once, the ones after them as much later
  live.feed("at 5 key down up\nat 6 key up up\nat 8 state\nat 30 state\n", late, 0, 20);
  EXPECT_EQ(summary(late), "20:5 21:6 23:7 45:8 ");
}

TEST(LiveScript, ReadsAPipeWithoutWaitingAndEndsWithIt) {
  int fds[2];
  ASSERT_EQ(pipe(fds), 0);
  LiveScript live(fds[0], "");
  std::vector<ScriptCommand> script;
  std::size_t done = 0;
  live.poll(script, done, 1);  // nothing written yet: returns at once
  ASSERT_EQ(write(fds[1], "at 2 state\nat 3 quit", 20), 20);
  live.poll(script, done, 1);
  EXPECT_EQ(summary(script), "2:1 ");
  close(fds[1]);
  done = 1;  // the state line has been acted on: it goes
  live.poll(script, done, 1);
  EXPECT_EQ(summary(script) + std::to_string(done) + std::to_string(live.ended()), "3:2 01");
  close(fds[0]);
}
