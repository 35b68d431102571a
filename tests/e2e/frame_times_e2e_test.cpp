// --frame-times writes one line "FRAME WORK_US" for every frame played, and a
// file it cannot write stops the game before the window opens.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "support/test_support.h"

TEST(FrameTimesEndToEnd, OneLineAFrameAndAClearStopWhenUnwritable) {
  TempDir tmp;
  const std::string times = tmp.path("times.txt");
  const RunResult r = runGame("--frames 6 --unthrottled --frame-times " + times);
  ASSERT_EQ(r.status, 0) << r.err;
  std::ifstream in(times);
  long frame = 0, us = -1, lines = 0;
  while (in >> frame >> us) {
    ++lines;
    EXPECT_EQ(frame, lines);
    EXPECT_GT(us, 0);
    EXPECT_LT(us, 10'000'000) << "microseconds, not something else";
  }
  EXPECT_EQ(lines, 6);
  const RunResult bad = runGame("--frames 1 --frame-times " + tmp.path("no/such/dir/t.txt"));
  EXPECT_EQ(bad.status, 2);
  EXPECT_NE(bad.err.find("can't write the frame times to"), std::string::npos) << bad.err;
}
