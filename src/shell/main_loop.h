#pragma once

struct Options;

// Opens the window, builds the fonts, sets up every window in its fixed order,
// loads the star map and the saved game and re-enters the saved mode. Ends the
// process with status 1 when video fails or the font or saved game is missing.
void startUp(const Options& options);
// One pass of the frame loop: at most one input event, the ship's velocity,
// the current mode's frame, the history windows or flight controls, the
// screen presented and, unless throttling is off, the wait for the next frame.
void runFrame();
// Whether runFrame waits for the frame-rate manager (off with --unthrottled and in benchmarks).
void setFrameDelay(bool enabled);
// The whole program: options, start-up, the loop. Returns only on bad options.
int gameMain(int argc, char** argv);
