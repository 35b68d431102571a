// The game on a desktop: input flooding in, a named window, a display that goes away.
#include "support/test_support.h"

TEST(Desktop, AMouseFloodOnStandardInputLeavesTheClickAndKeyAfterItToActInOrder) {
  // 500 motions, then a click on Engineering (menu 9) and E, all queued for the first frame; a bad line skipped.
  std::string script;
  for (int i = 0; i < 499; ++i) script += "at 1 mouse move " + std::to_string(i) + " " + std::to_string(i) + "\n";
  script += "at 1 mouse move 600 390\nat 1 mouse down\nat 1 mouse up\nat 1 key down e\n" + statesAt(1, 4) + "at x\n";
  TempDir tmp;
  const RunResult r = runGame("--unthrottled --frames 9 --script - <" + tmp.write("in.txt", script));
  EXPECT_EQ(r.status, 0) << r.err;  // the input ended long before the last frame
  EXPECT_EQ(r.err.substr(0, r.err.find(':', 6)), "stdin:508") << r.err;
  EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
  std::vector<std::vector<int>> seen;
  for (const std::string& s : stateLines(r.out))
    seen.push_back({stateNumber(s, "mouseY"), stateNumber(s, "itemSelected"), stateNumber(s, "currentMenu"),
                    stateNumber(s, "configOpen")});
  EXPECT_EQ(seen, (std::vector<std::vector<int>>{{390, 0, 0, 0}, {390, 1, 0, 0}, {390, 0, 9, 0}, {390, 0, 9, 1}}));
}

TEST(Desktop, TheWindowIsNamedAndWearsTheShipIconAndALostDisplaySavesTheVoyageAndEndsTheGame) {
  // A private X server, the game in it, the window manager's view of its window; then the server goes away.
  const std::string script = R"(
    command -v Xvfb >/dev/null && command -v xprop >/dev/null && command -v xdotool >/dev/null || exit 77
    dir=$(mktemp -d)
    Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$dir/display" 2>/dev/null & xvfb=$!
    for i in $(seq 100); do [ -s "$dir/display" ] && break; sleep 0.1; done
    # The X11 driver's own libraries (dbus, GL) keep allocations a sanitizer build would report at exit.
    export DISPLAY=:$(head -1 "$dir/display") SDL_VIDEODRIVER=x11 ASAN_OPTIONS="${ASAN_OPTIONS:-}:detect_leaks=0"
    "$1" --data "$2" --voyage "$3" --log-stdout --frames 100000000 >"$dir/log" 2>&1 & game=$!
    # SDL may replace its first window while it picks a renderer: ask again until one answers.
    for i in $(seq 50); do
      wid=$(timeout 30 xdotool search --sync --name 'Star Prospector' | tail -1)
      props=$(xprop -id "$wid" WM_NAME _NET_WM_ICON 2>/dev/null | head -2) && break
      sleep 0.2
    done
    echo "$props"
    for i in $(seq 100); do grep -q "Entering mainloop" "$dir/log" && break; sleep 0.1; done
    kill $xvfb; timeout 10 tail --pid=$game -f /dev/null || kill -9 $game; wait $game; echo "exit $?"
    grep -o "lost the connection to the X display" "$dir/log"; rm -rf "$dir")";
  TempDir tmp;
  const RunResult r = runShell("bash '" + tmp.write("window.sh", script) +
                               "' '" PROSPECTOR_BINARY "' '" PROSPECTOR_DATA_DIR "' '" + tmp.path("v.sav") + "'");
  if (r.status == 77) GTEST_SKIP() << "needs Xvfb, xprop and xdotool";
  EXPECT_EQ(r.out,
            "WM_NAME(STRING) = \"Star Prospector\"\n_NET_WM_ICON(CARDINAL) = \tIcon (64 x 64):\n"
            "exit 1\nlost the connection to the X display\n");
  EXPECT_NE(readFile(tmp.path("v.sav")).find("Wandering Lark"), std::string::npos);
}
