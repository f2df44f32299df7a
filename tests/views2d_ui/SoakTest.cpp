// A map that runs for weeks takes no more memory. KESTRAVA_SOAK_TICKS gives the number of ticks with a full list of
// favourites, KESTRAVA_SOAK_MINUTES that of ticks at a minute's interval with the usual dozen; both are small unless
// told, and the figures are printed.
#include <QAction>
#include <QSlider>
#include <iostream>

#include <gtest/gtest.h>
#include <malloc.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Fault.h"

#include "MapFixture.h"
#include "support/ResidentMemory.h"

namespace kestrava::views2d::ui {
namespace {

using testing::kMemoryTells;
using testing::ResidentMb;

constexpr double kMayGrowMb = 10;

int Asked(const char* variable, int usual) {
  const int asked = qEnvironmentVariableIntValue(variable);
  return asked > 0 ? asked : usual;
}

class MapSoak : public MapFixture {
 protected:
  /// It has a position all the time that the test and its time warp may reach; some fall down in that time.
  bool StaysUp(const std::string& satellite) {
    try {
      for (int day = 0; day <= 7; ++day) orbit::Engine->PlaceOf(satellite, clock.Read().utc + day);
      return true;
    } catch (const platform::Fault&) {
      return false;
    }
  }

  /// What a user does now and then: warp on and off, another satellite, another size, the pane, another mode.
  void Meddle(QWidget& map, int tick) {
    const char* entries[] = {"Mneq", "Mworld", "Mscq", "Mnextsat", "Mworld"};
    switch (tick % 6) {
      case 0:
        return Click(Child<QWidget>(map, tick % 12 == 0 ? "BUTtime(1)" : "BUTtime(0)"));
      case 1:
        return Entry(map, QString("MFaveList(%1)").arg(1 + tick % tables.FaveCount)).trigger();
      case 2:
        return Resize(map, 600 + tick * 7 % 400, 400 + tick * 5 % 300);
      case 3:
        return Click(Child<QWidget>(map, "BUTexpand"));
      case 4:
        return Child<QSlider>(map, "SliderWarp").setValue(1 + tick % 60);
      default:
        return Entry(map, entries[tick / 6 % 5]).trigger();
    }
  }

  /// Runs the ticks; a fifth of them first, in which caches grow to their size. What a tick holds depends on the size
  /// that the window happens to have, so the highest of the second fifth is compared with the highest of the last.
  void ExpectFlat(int ticks, double tickS, int meddleEvery) {
    ::malloc_trim(0);  // what the windows of other tests have let go does not count here
    QWidget& map = Open();
    Resize(map, 1000, 700);
    double earlyMb = 0;
    double lateMb = 0;
    double mostMb = 0;
    for (int tick = 0; tick < ticks; ++tick) {
      if (tick % meddleEvery == 0) Meddle(map, tick / meddleEvery);
      Run(tickS);
      settings.ForgetAccesses();
      const double nowMb = ResidentMb();
      mostMb = std::max(mostMb, nowMb);
      if (tick >= ticks / 5 && tick < 2 * ticks / 5) earlyMb = std::max(earlyMb, nowMb);
      if (tick >= 4 * ticks / 5) lateMb = std::max(lateMb, nowMb);
    }
    std::cout << ticks << " ticks: " << earlyMb << " MB at most in the second fifth, " << lateMb << " MB in the last, "
              << mostMb << " MB at most\n";
    if (!kMemoryTells) return;
    EXPECT_LT(lateMb - earlyMb, kMayGrowMb);
    EXPECT_LT(mostMb, 200);
  }
};

TEST_F(MapSoak, AFullListOfFavouritesInWarpSelectionAndResizing) {
  const QString names = QString::fromStdString(orbit::Engine->SatelliteNames());
  tables.FaveCount = 0;
  for (const QString& name : names.mid(1, names.size() - 2).split("\",\"")) {
    if (tables.FaveCount == 499) break;
    const std::string fave = name.left(15).trimmed().toStdString();
    if (StaysUp(fave)) tables.FaveList[static_cast<std::size_t>(++tables.FaveCount)].Name = fave;
  }
  ASSERT_EQ(tables.FaveCount, 499);
  ExpectFlat(Asked("KESTRAVA_SOAK_TICKS", 60), 2, 3);
}

TEST_F(MapSoak, DaysOfTicksAtAMinutesInterval) {
  settings.Set("MapUpdate", "60");
  ExpectFlat(Asked("KESTRAVA_SOAK_MINUTES", 100), 60, 50);
}

}  // namespace
}  // namespace kestrava::views2d::ui
