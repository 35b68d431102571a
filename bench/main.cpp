#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

// Benchmarks run headless in the built data directory, like the tests.
int main(int argc, char** argv) {
  setenv("SDL_VIDEODRIVER", "dummy", 0);
  if (chdir(PROSPECTOR_DATA_DIR) != 0) {
    std::fprintf(stderr, "bench: can't enter %s\n", PROSPECTOR_DATA_DIR);
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
