// What a user waits for: the program's start to the end of the launcher's first activation, warm disk (asked: 1 s); the
// click on "World" to the first painted map (asked: the second of its timer and 0.3 s), with the shipped favourites and
// with the most that a file gives. Wall-clock time; best of five is the figure that counts. The first map of a process
// also reads its pictures: its figure stands below the table.
#include <QApplication>
#include <cstdio>
#include <cstdlib>

#include <benchmark/benchmark.h>

#include "FirstMap.h"
#include "LauncherStart.h"
#include "runs/BestOfRuns.h"

namespace {

using kestrava::bench::FirstMap;
using kestrava::bench::LauncherStart;

constexpr int kMostFavourites = 499;
/// A figure whose work tells its own time, in seconds, each time that it is done.
template <class Work>
void Add(const char* name, Work work) {
  kestrava::bench::AddFiveRuns(name,
                               [work](benchmark::State& state) {
                                 for (auto _ : state) state.SetIterationTime(work());
                               })
      ->UseManualTime()
      ->Iterations(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  benchmark::Initialize(&argc, argv);
  LauncherStart launcher;
  launcher.SecondsToActivation();  // warms the disk
  const QApplication application(argc, argv);
  FirstMap map;
  const double firstS = map.SecondsToMap();
  Add("Start to launcher", [&] { return launcher.SecondsToActivation(); });
  Add("World to first map", [&] { return map.SecondsToMap(); });
  Add("World to first map, 499 favourites", [&] {
    map.TakeFavourites(kMostFavourites);
    return map.SecondsToMap();
  });
  const int exitCode = kestrava::bench::RunAndJudge({{"Start to launcher", 0, 1, ""},
                                                     {"World to first map", 0, 1.3, ""},
                                                     {"World to first map, 499 favourites", 0, 0, ""}},
                                                    kestrava::bench::Time::kWall);
  std::printf("%-40s %13.3f ms\n", "the first map of this process", firstS * 1e3);
  return exitCode;
}
