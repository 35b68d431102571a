// The game as a player meets it on a desktop: a mouse that floods the input, a named window.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "support/test_support.h"

namespace {

// Runs a shell command; its exit status and what it wrote on either stream.
RunResult shell(const std::string& command) {
  RunResult result;
  std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return result;
  for (char line[512]; std::fgets(line, sizeof line, pipe);) result.out += line;
  const int status = pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace

TEST(Desktop, AMouseFloodLeavesTheClickAndTheKeyAfterItToActInOrder) {
  // 500 motions, then a click on Engineering (menu 9) and E, all queued for the first frame.
  std::string script;
  for (int i = 0; i < 499; ++i) script += "at 1 mouse move " + std::to_string(i) + " " + std::to_string(i) + "\n";
  script += "at 1 mouse move 600 390\nat 1 mouse down\nat 1 mouse up\nat 1 key down e\n" + statesAt(1, 4);
  const RunResult r = runScript(script, "--frames 4");
  EXPECT_EQ(std::pair(r.status, r.err), std::pair(0, std::string()));
  std::vector<std::vector<int>> seen;
  for (const std::string& s : stateLines(r.out))
    seen.push_back({stateNumber(s, "mouseY"), stateNumber(s, "itemSelected"), stateNumber(s, "currentMenu"),
                    stateNumber(s, "configOpen")});
  EXPECT_EQ(seen, (std::vector<std::vector<int>>{{390, 0, 0, 0}, {390, 1, 0, 0}, {390, 0, 9, 0}, {390, 0, 9, 1}}));
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
    # SDL may replace its first window while it picks a renderer: ask again until one answers.
    for i in $(seq 50); do
      wid=$(timeout 30 xdotool search --sync --name 'Star Prospector' | tail -1)
      props=$(xprop -id "$wid" WM_NAME _NET_WM_ICON 2>/dev/null | head -2) && break
      sleep 0.2
    done
    echo "$props"
    # The game leaves first (SDL turns TERM into a quit request): without its X server it could not.
    kill $game; timeout 10 tail --pid=$game -f /dev/null || kill -9 $game
    kill $xvfb; rm -rf "$dir")";
  TempDir tmp;
  const RunResult r =
      shell("bash '" + tmp.write("window.sh", script) + "' '" PROSPECTOR_BINARY "' '" PROSPECTOR_DATA_DIR "'");
  if (r.status == 77) GTEST_SKIP() << "needs Xvfb, xprop and xdotool";
  EXPECT_EQ(r.out, "WM_NAME(STRING) = \"Star Prospector\"\n_NET_WM_ICON(CARDINAL) = \tIcon (64 x 64):\n");
}

TEST(Desktop, MakePlayBuildsTheGameAloneBeforeRunningIt) {
  // make's plan, not carried out: the game's own target is built, not everything, then the game runs.
  const RunResult r = shell("make -n -C '" PROSPECTOR_SOURCE_DIR "' play BUILD=plan");
  ASSERT_EQ(r.status, 0) << r.out;
  EXPECT_NE(r.out.find("cmake --build plan --target prospector "), std::string::npos) << r.out;
  EXPECT_EQ(r.out.find("cmake --build plan -j"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("plan/prospector --data plan/data"), std::string::npos) << r.out;
}
