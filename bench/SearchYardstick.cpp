#include "SearchYardstick.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "orbit/Frames.h"

#include "SampleSky.h"

namespace kestrava::bench {
namespace {

constexpr double kStepDays = 10 / 86400.0;
constexpr double kToleranceDays = 1e-3 / 86400.0;
constexpr double kLongestDays = 30;

/// One satellite from one place.
class PlainTrack {
 public:
  PlainTrack(const orbit::ElementSet& set, const orbit::Observer& observer)
      : model_(ForYardstick(set)), epoch_(set.epoch), observer_(observer) {}

  double ElevationRad(double serial) {
    const double days = (serial - epoch_.wholeDays) - epoch_.dayFraction;
    const YardstickState state = model_.Propagate(days * 1440);
    const orbit::EarthTurn turn = orbit::EarthTurn::At(orbit::GreenwichMeanSiderealTime(serial));
    const orbit::Vec3 position{state.r[0], state.r[1], state.r[2]};
    const orbit::Vec3 velocity{state.v[0], state.v[1], state.v[2]};
    return orbit::LookFrom(observer_, orbit::EarthFixedFromTeme(turn, position, velocity)).elevationRad;
  }

  double Crossing(double low, double high) {
    const bool up = ElevationRad(low) > 0;
    while (high - low > kToleranceDays) {
      const double middle = (low + high) / 2;
      ((ElevationRad(middle) > 0) == up ? low : high) = middle;
    }
    return high;
  }

  double NextRise(double from) {
    bool wasUp = ElevationRad(from) > 0;
    for (double serial = from; serial < from + kLongestDays; serial += kStepDays) {
      const bool up = ElevationRad(serial + kStepDays) > 0;
      if (up && !wasUp) return Crossing(serial, serial + kStepDays);
      wasUp = up;
    }
    return -1;
  }

  std::size_t Passes(double from, double days) {
    std::size_t passes = 0;
    double highestRad = 0;
    bool wasUp = ElevationRad(from) > 0;
    for (double serial = from; serial < from + days; serial += kStepDays) {
      const double elevationRad = ElevationRad(serial + kStepDays);
      const bool up = elevationRad > 0;
      highestRad = up ? std::max(highestRad, elevationRad) : 0;
      benchmark::DoNotOptimize(highestRad);
      if (up != wasUp) benchmark::DoNotOptimize(Crossing(serial, serial + kStepDays));
      passes += up && !wasUp;
      wasUp = up;
    }
    return passes;
  }

 private:
  Yardstick model_;
  orbit::SerialMoment epoch_;
  orbit::Observer observer_;
};

}  // namespace

void NextRiseOf500Yardstick(benchmark::State& state) {
  const orbit::Observer observer = SampleEngine().CurrentObserver();
  const std::vector<orbit::ElementSet> sets = NearEarthSets();
  std::vector<PlainTrack> tracks;
  for (std::size_t i = 0; i < 500; ++i) tracks.emplace_back(sets[i % sets.size()], observer);
  int round = 0;
  for (auto _ : state) {
    const double start = kStartSerial + 0.01 * (round++ % 50);
    for (PlainTrack& track : tracks) benchmark::DoNotOptimize(track.NextRise(start));
  }
}

void PassListYardstick(benchmark::State& state) {
  const std::vector<orbit::ElementSet>& sets = AllSets();
  const auto station =
      std::find_if(sets.begin(), sets.end(), [](const auto& set) { return set.name == "ISS (ZARYA)"; });
  PlainTrack track(*station, SampleEngine().CurrentObserver());
  for (auto _ : state) benchmark::DoNotOptimize(track.Passes(kStartSerial, 3));
}

}  // namespace kestrava::bench
