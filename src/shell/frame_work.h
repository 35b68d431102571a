#pragma once
#include <string>

// Bracket the work of one frame: from polling its event to presenting it, the
// frame-rate wait left out. Between the two, windows that would show the
// screen at once leave it to the frame's own present.
void beginFrameWork();
void endFrameWork(long frame);

// Writes one line "FRAME WORK_US" for every frame from now on to `path`
// (--frame-times). False with `error` set when the file cannot be written.
bool recordFrameTimes(const std::string& path, std::string& error);
