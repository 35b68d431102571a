// The game as a player meets it on a desktop: a mouse that floods the input, a named window.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstring>
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
  EXPECT_EQ(seen, (std::vector<std::vector<int>>{
                      {390, 0, 0, 0}, {390, 1, 0, 0}, {390, 0, engineering, 0}, {390, 0, engineering, 1}}));
}

TEST(Desktop, TheWindowIsNamedStarProspectorAndWearsTheShipIcon) {
  // A private X server on a free display, the game in it, and the window manager's view of its window.
  const std::string script = R"(
    command -v Xvfb >/dev/null && command -v xprop >/dev/null && command -v xdotool >/dev/null || exit 77
    dir=$(mktemp -d)
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$dir/display" 2>/dev/null & xvfb=$!
    for i in $(seq 100); do [ -s "$dir/display" ] && break; sleep 0.1; done
    # The X11 driver's own libraries (dbus, GL) keep allocations a sanitizer build would report at exit.
    export DISPLAY=:$(head -1 "$dir/display") SDL_VIDEODRIVER=x11 ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
    "$1" --data "$2" --frames 900 >/dev/null 2>&1 & game=$!
    wid=$(timeout 30 xdotool search --sync --name 'Star Prospector' | head -1)
    xprop -id "$wid" WM_NAME _NET_WM_ICON | head -2
    # The game leaves first (SDL turns TERM into a quit request): without its X server it could not.
    kill $game; timeout 10 tail --pid=$game -f /dev/null || kill -9 $game
    kill $xvfb; rm -rf "$dir")";
  TempDir tmp;
  const std::string command =
      "bash '" + tmp.write("window.sh", script) + "' '" PROSPECTOR_BINARY "' '" PROSPECTOR_DATA_DIR "' 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string out;
  for (char buffer[512]; std::fgets(buffer, sizeof buffer, pipe);) out += buffer;
  const int status = pclose(pipe);
  if (WIFEXITED(status) && WEXITSTATUS(status) == 77) GTEST_SKIP() << "needs Xvfb, xprop and xdotool";
  EXPECT_EQ(out, "WM_NAME(STRING) = \"Star Prospector\"\n_NET_WM_ICON(CARDINAL) = \tIcon (64 x 64):\n");
}

TEST(Desktop, MakePlayBuildsTheGameAloneBeforeRunningIt) {
  // make's plan, not carried out: each build step names the game's own target, then the game runs.
  std::FILE* pipe = popen("make -n -C '" PROSPECTOR_SOURCE_DIR "' play BUILD=plan 2>&1", "r");
  ASSERT_NE(pipe, nullptr);
  std::string plan;
  std::vector<std::string> builds;
  for (char line[512]; std::fgets(line, sizeof line, pipe);) {
    plan += line;
    if (std::strstr(line, "cmake --build")) builds.push_back(line);
  }
  ASSERT_EQ(pclose(pipe), 0) << plan;
  ASSERT_FALSE(builds.empty()) << plan;
  for (const std::string& b : builds) EXPECT_NE(b.find("--target prospector "), std::string::npos) << b;
  EXPECT_NE(plan.find("plan/prospector --data plan/data"), std::string::npos) << plan;
}
