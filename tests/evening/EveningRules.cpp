#include "evening/EveningRules.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/Files.h"

#include "support/StationFiles.h"

namespace kestrava::evening {

namespace {

struct Favourite {
  const char* name;
  const char* spoken;
  const char* inEtaList;  ///< spoken form of the name cut or filled to 14 characters
};

constexpr std::array<Favourite, 12> kFavourites{
    {{"ISS (ZARYA)", "The International Space station", "The International Space station"},
     {"HST", "The Hubble space telescope", "The Hubble space telescope"},
     {"TIANGONG-2", "TIANGONG 2", "TIANGONG 2    "},
     {"NOAA 15", "NOAA 15", "NOAA 15       "},
     {"NOAA 18", "NOAA 18", "NOAA 18       "},
     {"NOAA 19", "NOAA 19", "NOAA 19       "},
     {"METEOR-M 2", "METEOR M 2", "METEOR M 2    "},
     {"OSCAR 7 (AO-7)", "OSCAR 7 (AO 7)", "OSCAR 7 (AO 7)"},
     {"JAS-2 (FO-29)", "JAS 2 (FO 29)", "JAS 2 (FO 29) "},
     {"SAUDISAT 1C (SO", "SAUDISAT 1C (SO", "SAUDISAT 1C (S"},
     {"FOX-1B (AO-91)", "FOX 1B (AO 91)", "FOX 1B (AO 91)"},
     {"MOLNIYA 3-50", "MOLNIYA 3 50", "MOLNIYA 3 50  "}}};
constexpr int kCount = static_cast<int>(kFavourites.size());

const Favourite& Nth(int favourite) {
  return kFavourites[static_cast<std::size_t>(favourite - 1)];
}

int First(Deed deed) {
  return TimesOf(deed).front();
}

std::string Whole(double degrees) {
  return std::to_string(static_cast<int>(std::floor(degrees)));
}

/// The map's slow tick, whatever its check mark says, and once its fast one: the next after the user has had the list
/// shown while it was empty still. When that is depends on when the desktop told the map that it was active.
std::vector<double> AlarmMoments(const EveningRecord& evening) {
  const int openedS = First(Deed::kOpenMap);
  const int shownS = First(Deed::kShowEta);
  const auto& events = evening.voice.events;
  const auto fast = std::find_if(events.begin(), events.end(), [&](const VoiceEvent& event) {
    return event.atS > shownS && event.text.find(" will be in range in ") != std::string::npos;
  });
  std::vector<double> moments;
  if (fast != events.end() && fast->atS <= shownS + kMapUpdateS) moments.push_back(fast->atS);
  EXPECT_EQ(moments.size(), 1U) << "the list was shown and none of the next fast ticks spoke";
  for (int s = openedS + 60; s <= evening.endS; s += 60) moments.push_back(s);
  return moments;
}

}  // namespace

EveningRules::EveningRules() {
  for (const char* name : {"amateur.txt", "geo.txt", "gps-ops.txt", "iridium.txt", "molniya.txt", "stations.txt",
                           "visual.txt", "weather.txt"})
    Put(name, testing::StationFile(name));
  clock.SetUtc(platform::MakeSerial(kStartLocal) - kOffsetHours / 24);
  clock.SetOffsetHours(kOffsetHours);
  engine_.SetDataFolder(platform::AppDir);
  engine_.SetObserverLatitude(kLatitudeDeg);
  engine_.SetObserverLongitude(360 - kLongitudeWestDeg);
  engine_.SetObserverHeight(0);
  looks_.resize(kCount);
}

EveningRules::Look EveningRules::At(int favourite, int second) {
  std::vector<Look>& known = looks_[static_cast<std::size_t>(favourite - 1)];
  while (static_cast<int>(known.size()) <= second) {
    platform::DateParts moment = kStartLocal;
    const int s = static_cast<int>(known.size());
    moment.hour += s / 3600;
    moment.minute = s / 60 % 60;
    moment.second = s % 60;
    EXPECT_TRUE(orbit::Satcalc(sky_, Nth(favourite).name, moment, false)) << Nth(favourite).name;
    known.push_back({tables_.result.SatAz, tables_.result.SatEl});
  }
  return known[static_cast<std::size_t>(second)];
}

Lines EveningRules::Rises(int endS) {
  Lines lines;
  const std::vector<int> openings = TimesOf(Deed::kOpenTable);
  const std::vector<int> exits = TimesOf(Deed::kExitTable);
  for (std::size_t i = 0; i < openings.size(); ++i) {
    const int lastS = i < exits.size() ? exits[i] : endS;
    for (int s = openings[i] + 1; s <= lastS; ++s)
      for (int f = 1; f <= kCount; ++f)
        if (IsUp(f, s) && (s == openings[i] + 1 || !IsUp(f, s - 1)))
          lines.push_back(ClockOf(s) + " " + Nth(f).spoken + " is now in range at heading " + Whole(At(f, s).azDeg) +
                          "degrees.");
  }
  return lines;
}

int EveningRules::NearestTo(const Click& click, bool centreNorth) {
  double best = 32700;
  int pick = 0;
  for (int f = 1; f <= kCount; ++f) {
    const Look look = At(f, click.atS);
    double turned = look.azDeg + (centreNorth ? 180 : 0);
    if (turned > 360) turned -= 360;
    const double distance =
        std::abs(click.x - click.width / 360.0 * turned) + std::abs(click.y - click.height / 90.0 * (90 - look.elDeg));
    if (distance < best) best = std::nearbyint(distance), pick = f;
  }
  return pick;
}

/// Nobody selected: the first of the list that is up is. A selected one that is down ten seconds from now is dropped.
void EveningRules::Paint(int second) {
  for (int f = 1; f <= kCount && selected_ == 0; ++f) {
    if (!IsUp(f, second)) continue;
    selected_ = f;
    selections_.push_back(ClockOf(second) + " Selected Satellite " + Nth(f).spoken);
  }
  if (selected_ > 0 && At(selected_, second + 10).elDeg < 0) selected_ = 0;
}

void EveningRules::Report(int second) {
  if (second != reportDueS_) return;
  reportDueS_ = second + 9;
  if (selected_ == 0 || !announcing_) return;
  const Look look = At(selected_, second);
  reports_.push_back(ClockOf(second) + " Heading " + Whole(look.azDeg) + ", Elevation " + Whole(look.elDeg));
}

void EveningRules::HorizonDeed(const Plan& plan, const EveningRecord& evening) {
  if (plan.deed == Deed::kToggleAnnouncer) announcing_ = !announcing_;
  if (plan.deed == Deed::kCentreNorth) centreNorth_ = true;
  if (plan.deed == Deed::kAnnounceInHorizon) reportDueS_ = plan.atS + 60;
  if (plan.deed != Deed::kClickHorizon && plan.deed != Deed::kClickGround) return;
  const auto click = std::find_if(evening.clicks.begin(), evening.clicks.end(),
                                  [&](const Click& each) { return each.atS == plan.atS; });
  ASSERT_NE(click, evening.clicks.end());
  selected_ = NearestTo(*click, centreNorth_);
  selections_.push_back(ClockOf(plan.atS) + " Selected Satellite " + Nth(selected_).spoken);
}

void EveningRules::FollowHorizon(const EveningRecord& evening) {
  if (reportDueS_ > 0) return;
  const int openedS = First(Deed::kOpenHorizon);
  reportDueS_ = openedS + 8;
  for (int s = openedS + 1; s <= evening.endS; ++s) {
    Paint(s);
    Report(s);
    for (const Plan& plan : ThePlan())
      if (plan.atS == s) HorizonDeed(plan, evening);
  }
}

Lines EveningRules::Selections(const EveningRecord& evening) {
  FollowHorizon(evening);
  return selections_;
}

Lines EveningRules::Reports(const EveningRecord& evening) {
  FollowHorizon(evening);
  return reports_;
}

Lines EveningRules::Announcements(int endS) {
  Lines lines;
  for (const Plan& plan : ThePlan()) {
    const bool upOnly = plan.deed == Deed::kAnnounceInHorizon;
    if ((!upOnly && plan.deed != Deed::kAnnounceInMap) || plan.atS >= endS) continue;
    for (int f = 1; f <= kCount; ++f) {
      const Look look = At(f, plan.atS);
      if (upOnly && look.elDeg <= 0) continue;
      lines.push_back(ClockOf(plan.atS) + " " + Nth(f).spoken + (upOnly ? "" : ",") + " Azimuth " + Whole(look.azDeg) +
                      " Elevation " + Whole(look.elDeg) + ". ");
    }
  }
  return lines;
}

/// Second of the rise and favourite, the earliest first, of those that rise in time to be spoken of.
std::vector<std::pair<int, int>> EveningRules::RisesAhead(int second) {
  constexpr int kFarthestS = 11 * 60;
  std::vector<std::pair<int, int>> rises;
  int later = 0;
  for (int f = 1; f <= kCount; ++f) {
    if (At(f, second).elDeg >= 0) continue;
    int rise = second + 1;
    while (rise <= second + kFarthestS && !IsUp(f, rise)) ++rise;
    if (rise <= second + kFarthestS) {
      rises.emplace_back(rise, f);
    } else {
      ++later;
    }
  }
  EXPECT_GT(later, 0) << "the latest rise of all is not listed, and may be one of these";
  std::sort(rises.begin(), rises.end());
  return rises;
}

Lines EveningRules::Alarms(const EveningRecord& evening) {
  Lines lines;
  for (const double atS : AlarmMoments(evening)) {
    for (const auto& [rise, f] : RisesAhead(static_cast<int>(atS))) {
      // It rises between the second before and this one.
      const int minutes = static_cast<int>((rise - 0.5 - atS) / 60);
      if (minutes > 10 || minutes % 2 != 0) continue;
      const std::string time = minutes == 0 ? "Less than a minute" : std::to_string(minutes) + " minutes";
      lines.push_back(ClockOf(atS) + " " + Nth(f).inEtaList + " will be in range in " + time);
    }
  }
  return lines;
}

}  // namespace kestrava::evening
