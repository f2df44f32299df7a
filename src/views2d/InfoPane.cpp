#include "InfoPane.h"

#include <array>
#include <utility>

#include "orbit/Angles.h"
#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"

namespace kestrava::views2d {

namespace {

using platform::Format;

constexpr platform::FaultTrap trap{"Mapview Gsatroutine"};

bool IsJoined(std::string_view text, std::initializer_list<std::string_view> parts) {
  for (const std::string_view part : parts) {
    if (text.substr(0, part.size()) != part) return false;
    text.remove_prefix(part.size());
  }
  return text.empty();
}

void ShowPlace(const orbit::ResultBlock& result, std::string_view name, MapState& map, MapHost& host) {
  trap([&] { SetRemoteStat(map, host, 0, {"Satellite : ", name}); });
  trap([&] { SetRemoteStat(map, host, 1, {"Latitude : ", Format(result.SatLat, "0.00"), " Deg"}); });
  trap([&] { SetRemoteStat(map, host, 2, {"Longitude : ", orbit::LonText(result.SatLon), " Deg"}); });
  trap([&] { SetRemoteStat(map, host, 3, {"Azimuth : ", Format(result.SatAz, "0.0"), " Deg"}); });
  trap([&] { SetRemoteStat(map, host, 4, {"Elevation : ", Format(result.SatEl, "0.0"), " Deg"}); });
}

void ShowDistances(const orbit::ResultBlock& result, MapState& map, MapHost& host) {
  trap([&] {
    if (UsesMiles()) {
      SetRemoteStat(map, host, 5, {"Height : ", Format(orbit::KmToMiles(result.SatHeight), "0.0"), " Miles"});
    } else {
      SetRemoteStat(map, host, 5, {"Height : ", Format(result.SatHeight, "0.0"), " Km"});
    }
  });
  const std::string_view state = result.SatSunlit != 0 ? "SUNLIT" : "ECLIPSED";
  trap([&] {
    if (UsesMiles()) {
      const double miles = orbit::KmToMiles(result.SatRange);
      SetRemoteStat(map, host, 6, {"Range : ", platform::FloorText(miles), " Miles [", state, "]"});
    } else {  // two blanks here, one in miles: the texts are meant so
      SetRemoteStat(map, host, 6, {"Range : ", platform::FloorText(result.SatRange), " Km  [", state, "]"});
    }
  });
}

void ShowOrbit(const orbit::ResultBlock& result, MapState& map, MapHost& host) {
  trap([&] {
    const std::string_view rise = result.SatEl <= 0 ? std::string_view{result.SatAOS} : "In Range Now";
    SetRemoteStat(map, host, 7, {"AOS : ", rise});
  });
  trap([&] { SetRemoteStat(map, host, 8, {"MA : ", result.SatMA, " deg"}); });
  trap([&] { SetRemoteStat(map, host, 9, {"Orbit : ", Format(platform::Val(result.SatOrbit), "#,###"), " revs"}); });
  trap([&] { SetRemoteStat(map, host, 17, {"Phase(MA) : ", platform::NumberText(result.SatPhaseMA)}); });
}

}  // namespace

void SetRemoteStat(MapState& map, MapHost& host, int index, std::initializer_list<std::string_view> parts) {
  std::string& text = platform::At(map.RemoteStat, index);
  if (IsJoined(text, parts)) return;
  text.clear();
  for (const std::string_view part : parts) text += part;
  host.RemoteStatChanged(index);
}

void FillInfoPane(const orbit::Tables& tables, std::string_view name, MapState& map, MapHost& host) {
  ShowPlace(tables.result, name, map, host);
  ShowDistances(tables.result, map, host);
  ShowOrbit(tables.result, map, host);
}

void ShowNoPosition(std::string_view name, MapState& map, MapHost& host) {
  constexpr auto kHeads = std::to_array<std::pair<int, std::string_view>>({{1, "Latitude : "},
                                                                           {2, "Longitude : "},
                                                                           {3, "Azimuth : "},
                                                                           {4, "Elevation : "},
                                                                           {5, "Height : "},
                                                                           {6, "Range : "},
                                                                           {7, "AOS : "},
                                                                           {8, "MA : "},
                                                                           {9, "Orbit : "},
                                                                           {17, "Phase(MA) : "}});
  trap([&] { SetRemoteStat(map, host, 0, {"Satellite : ", name}); });
  for (const auto& [index, head] : kHeads) trap([&] { SetRemoteStat(map, host, index, {head, kNoValue}); });
}

void ShowNoradTime(MapState& map, MapHost& host) {
  platform::SerialDate now = 0;
  trap([&] { now = orbit::NowUTC(); });
  platform::SerialDate shown = now;
  if (map.warp.WarpSpeed != 0) trap([&] { shown = orbit::LocalToUTC(platform::MakeSerial(map.warp.Parts())); });
  double value = 0;
  // Day and second are those of the system also in warp; only hour and minute follow the warp clock.
  trap([&] {
    value = orbit::DayNumber(orbit::RunTimeDateText()) + platform::HourOf(shown) / 24.0 +
            platform::MinuteOf(shown) / 60.0 / 24.0 + platform::SecondOf(now) / 60.0 / 60.0 / 24.0;
  });
  trap([&] { SetRemoteStat(map, host, 10, {"NORAD Time : ", Format(value, "000.0000000000")}); });
}

bool UsesMiles() {
  return platform::ReadSetting("Miles", "0") != "0";
}

platform::DateParts ShownMoment(const WarpClock& warp) {
  return warp.WarpSpeed != 0 ? warp.Parts() : orbit::NowLocalParts();
}

}  // namespace kestrava::views2d
