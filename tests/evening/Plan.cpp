#include "evening/Evening.h"

namespace kestrava::evening {

const std::vector<Plan>& ThePlan() {
  static const std::vector<Plan> plan{
      {5, Deed::kOpenMap},
      {6, Deed::kOpenTable},
      {7, Deed::kOpenHorizon},
      {30, Deed::kShowEta},  // empty still: the next fast tick fills it, and speaks
      {200, Deed::kClickHorizon},
      {600, Deed::kToggleAnnouncer},
      {840, Deed::kToggleAnnouncer},
      {1000, Deed::kAnnounceInMap},
      {1010, Deed::kAnnounceInHorizon},  // what is left of the map's goes
      {1400, Deed::kAnnounceInMap},      // reports go on meanwhile, and wait
      {1440, Deed::kEscapeInHorizon},
      {1500, Deed::kToggleSpeech},  // the alarms go on all the same
      {1700, Deed::kAnnounceInHorizon},
      {1730, Deed::kAnnounceInHorizon},  // the minute begins anew
      {2400, Deed::kExitTable},
      {2500, Deed::kOpenTable},  // who is up is told again
      {3000, Deed::kCentreNorth},
      {3100, Deed::kClickGround},  // below the horizon: dropped with the next paint
      {4000, Deed::kAnnounceInMap},
      {4004, Deed::kEscapeInTable},
      {5000, Deed::kAnnounceInHorizon},
      {7300, Deed::kClickHorizon},
  };
  return plan;
}

}  // namespace kestrava::evening
