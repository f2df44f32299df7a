#include "Calendar.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/Doors.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/Version.h"

#include "Moments.h"

namespace kestrava::cli {

namespace {

constexpr std::size_t kLongestLineBytes = 75;
constexpr std::string_view kLineEnd = "\r\n";

bool StartsCharacter(char c) {
  return (c & 0xC0) != 0x80;
}

/// A content line, folded between characters where it is longer than a line may be.
void WriteLine(std::ostream& out, std::string_view line) {
  std::size_t room = kLongestLineBytes;
  while (line.size() > room) {
    std::size_t cut = room;
    while (cut > 1 && !StartsCharacter(line[cut])) --cut;
    out << line.substr(0, cut) << kLineEnd << ' ';
    line.remove_prefix(cut);
    room = kLongestLineBytes - 1;  // the blank counts
  }
  out << line << kLineEnd;
}

/// A value of type TEXT.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\n') {
      escaped += "\\n";
    } else if (static_cast<unsigned char>(c) >= ' ') {
      if (c == '\\' || c == ';' || c == ',') escaped += '\\';
      escaped += c;
    }
  }
  return escaped;
}

std::string Degrees(double degrees) {
  return platform::PointText(std::round(degrees * 10) / 10);
}

std::string YesNo(bool yes) {
  return yes ? "yes" : "no";
}

std::string Description(const predict::PassFacts& pass) {
  return "Start " + IsoText(pass.riseUtc) + ", azimuth " + Degrees(pass.riseAzimuthDeg) + "\nHighest " +
         IsoText(pass.highestUtc) + ", elevation " + Degrees(pass.highestElevationDeg) + ", azimuth " +
         Degrees(pass.highestAzimuthDeg) + "\nEnd " + IsoText(pass.setUtc) + ", azimuth " +
         Degrees(pass.setAzimuthDeg) + "\nCatalogue number " + std::to_string(pass.catalogueNumber) + ", orbit " +
         std::to_string(pass.revolution) + "\nSunlit: " + YesNo(pass.sunlit) + ", visible: " + YesNo(pass.visible);
}

/// The local day of a moment, "20261115".
std::string LocalDay(platform::SerialDate utc, int daysLater) {
  const platform::DateParts day = platform::SplitSerial(std::floor(platform::TheClock().LocalAt(utc)) + daysLater);
  return std::to_string(day.year * 10000 + day.month * 100 + day.day);
}

/// Whether a pass stands for a day that the satellite is wholly up: the engine gives such a day the hours from 6 to 18.
/// A pass of many hours with a rise and a set of its own is as long as it is.
bool StandsForADay(const predict::PassFacts& pass) {
  const auto isAt = [](platform::SerialDate moment, double hour) {
    return std::abs((moment - std::floor(moment)) * 24 - hour) < 1e-4;
  };
  return pass.allDay && isAt(pass.riseUtc, 6) && isAt(pass.setUtc, 18);
}

void WriteTimes(std::ostream& out, const predict::PassFacts& pass) {
  if (StandsForADay(pass)) {
    WriteLine(out, "DTSTART;VALUE=DATE:" + LocalDay(pass.riseUtc, 0));
    WriteLine(out, "DTEND;VALUE=DATE:" + LocalDay(pass.riseUtc, 1));
    return;
  }
  const double secondLater = pass.riseUtc + 1 / platform::kSecondsPerDay;  // an event may not end as it begins
  WriteLine(out, "DTSTART:" + CalendarText(pass.riseUtc));
  WriteLine(out, "DTEND:" + CalendarText(std::max(pass.setUtc, secondLater)));
}

void WriteEvent(std::ostream& out, const Place& place, const PassEvent& event) {
  const predict::PassFacts& pass = event.pass;
  WriteLine(out, "BEGIN:VEVENT");
  WriteLine(out, "UID:" + event.uid);
  WriteLine(out, "DTSTAMP:" + CalendarText(platform::TheClock().Read().utc));
  WriteTimes(out, pass);
  const std::string height = std::to_string(static_cast<int>(predict::WholeDegrees(pass.highestElevationDeg)));
  WriteLine(out, "SUMMARY:" + Escaped(pass.satellite + ", up to " + height + " degrees"));
  WriteLine(out, "DESCRIPTION:" + Escaped(Description(pass)));
  if (!place.name.empty()) WriteLine(out, "LOCATION:" + Escaped(place.name));
  WriteLine(out, "GEO:" + platform::PointText(place.observer.latitudeDeg) + ";" +
                     platform::PointText(place.longitudeEastDeg));
  WriteLine(out, "TRANSP:TRANSPARENT");
  WriteLine(out, "END:VEVENT");
}

}  // namespace

std::string UidOf(int catalogueNumber, int revolution, int ordinal, const Place& place) {
  std::string uid = std::to_string(catalogueNumber) + "-" + std::to_string(revolution);
  if (ordinal > 1) uid += "-" + std::to_string(ordinal);
  const auto part = [](double degrees, char positive, char negative) {
    const double hundredths = std::round(degrees * 100);
    return platform::PointText(std::abs(hundredths) / 100) + (hundredths < 0 ? negative : positive);
  };
  return uid + "-" + part(place.observer.latitudeDeg, 'n', 's') + part(place.longitudeEastDeg, 'e', 'w') + "@kestrava";
}

void WriteCalendar(std::ostream& out, const Place& place, const std::vector<PassEvent>& events) {
  if (events.empty()) return;
  WriteLine(out, "BEGIN:VCALENDAR");
  WriteLine(out, "VERSION:2.0");
  WriteLine(out, "PRODID:-//The Kestrava Makers//Kestrava " + platform::LongVersion() + "//EN");
  WriteLine(out, "CALSCALE:GREGORIAN");
  for (const PassEvent& event : events) WriteEvent(out, place, event);
  WriteLine(out, "END:VCALENDAR");
}

}  // namespace kestrava::cli
