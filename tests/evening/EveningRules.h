// What must be said in the evening, worked out anew from the rules and a sky of the test's own. Of the station only the
// position of a satellite at a second is asked, which has tests of its own.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/Tables.h"

#include "evening/Evening.h"
#include "support/House.h"

namespace kestrava::evening {

/// Texts with their moments, "18:03:05 Heading 12, Elevation 40", in the order in which they must be said.
using Lines = std::vector<std::string>;

class EveningRules : public testing::House {
 protected:
  EveningRules();

  /// A sentence for every rise that the table sees, and for who is up when it is opened.
  Lines Rises(int endS);
  /// Who is selected, by itself and by the user's clicks.
  Lines Selections(const EveningRecord& evening);
  /// The position of the selected one, in its rhythm.
  Lines Reports(const EveningRecord& evening);
  /// Full announcements of both windows.
  Lines Announcements(int endS);
  /// The alarms of the quick ETA list.
  Lines Alarms(const EveningRecord& evening);

 private:
  struct Look {
    double azDeg = 0;
    double elDeg = 0;
  };

  Look At(int favourite, int second);
  bool IsUp(int favourite, int second) { return At(favourite, second).elDeg > 0; }
  int NearestTo(const Click& click, bool centreNorth);
  void FollowHorizon(const EveningRecord& evening);
  void Paint(int second);
  void Report(int second);
  void HorizonDeed(const Plan& plan, const EveningRecord& evening);
  std::vector<std::pair<int, int>> RisesAhead(int second);

  orbit::Tables tables_;
  orbit::OrbitEngine engine_;
  orbit::Sky sky_{tables_, engine_};
  std::vector<std::vector<Look>> looks_;  ///< of a favourite, at the seconds worked out so far

  int selected_ = 1;  ///< the map's load selects the first
  int reportDueS_ = 0;
  bool announcing_ = true;
  bool centreNorth_ = false;
  Lines selections_;
  Lines reports_;
};

}  // namespace kestrava::evening
