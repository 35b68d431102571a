#include "shell/frame_work.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "base/screen_updates.h"

namespace {

using Clock = std::chrono::steady_clock;
Clock::time_point started;
std::FILE* record = nullptr;

}  // namespace

void beginFrameWork() {
  holdScreenUpdates(true);
  started = Clock::now();
}

void endFrameWork(long frame) {
  holdScreenUpdates(false);
  if (!record) return;
  const auto us = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - started).count();
  std::fprintf(record, "%ld %lld\n", frame, static_cast<long long>(us));
}

bool recordFrameTimes(const std::string& path, std::string& error) {
  std::FILE* file = std::fopen(path.c_str(), "w");
  if (!file) {
    error = "can't write the frame times to " + path + ": " + std::strerror(errno);
    return false;
  }
  if (record) std::fclose(record);
  record = file;  // the process's exit flushes it
  return true;
}
