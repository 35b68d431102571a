// Loading the shipped star map and building its viewing tree is start-up time
// the player waits through with the log window open; together they should
// stay well under 150 ms.
#include <benchmark/benchmark.h>

#include "universe/star_map.h"
#include "universe/viewing_tree.h"

namespace {

void BM_LoadStarmapFile(benchmark::State& state) {
  for (auto _ : state) {
    loadStarmapFile(starMap, "Starmap.txt");
    benchmark::DoNotOptimize(starMapCounts.totalPlanets);
  }
  if (starMapCounts.totalStars == 0) state.SkipWithError("Starmap.txt is missing from the data directory");
  state.counters["stars"] = starMapCounts.totalStars;
  state.counters["planets"] = starMapCounts.totalPlanets;
  clearStarMap(starMap);
}
BENCHMARK(BM_LoadStarmapFile)->Unit(benchmark::kMillisecond);

void BM_BuildViewingTree(benchmark::State& state) {
  loadStarmapFile(starMap, "Starmap.txt");
  for (auto _ : state) {
    buildViewingTree(starMap);
    benchmark::DoNotOptimize(starMap[100][96].viewList);
  }
  clearStarMap(starMap);
}
BENCHMARK(BM_BuildViewingTree)->Unit(benchmark::kMillisecond);

// The two together, as start-up runs them.
void BM_LoadStarmapAndBuildTree(benchmark::State& state) {
  for (auto _ : state) {
    loadStarmapFile(starMap, "Starmap.txt");
    buildViewingTree(starMap);
    benchmark::DoNotOptimize(starMap[100][96].viewList);
  }
  clearStarMap(starMap);
}
BENCHMARK(BM_LoadStarmapAndBuildTree)->Unit(benchmark::kMillisecond);

}  // namespace
