// The iCalendar form, read by a reader that is not ours (libical), and the identities of its events.
#include <map>
#include <memory>
#include <set>

#include <gtest/gtest.h>
#include <libical/ical.h>

#include "cli/Terminal.h"

namespace kestrava::cli {
namespace {

struct Event {
  std::string summary;
  std::string start;
  std::string end;
  std::string description;
  std::string location;
  bool isDate = false;
};

class Calendar : public Terminal {
 protected:
  /// All events by their identity. Errors that the reader finds fail the test.
  static std::map<std::string, Event> Read(const std::string& text) {
    std::map<std::string, Event> events;
    const std::unique_ptr<icalcomponent, void (*)(icalcomponent*)> calendar(icalparser_parse_string(text.c_str()),
                                                                            icalcomponent_free);
    if (!calendar) {
      ADD_FAILURE() << "no calendar:\n" << text;
      return events;
    }
    EXPECT_EQ(icalcomponent_isa(calendar.get()), ICAL_VCALENDAR_COMPONENT);
    icalrestriction_check(calendar.get());
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0)
        << std::string(icalcomponent_as_ical_string(calendar.get())).substr(0, 2000);
    for (icalcomponent* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT); event;
         event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
      const auto text_of = [](const char* value) { return std::string(value ? value : ""); };
      const icaltimetype start = icalcomponent_get_dtstart(event);
      const Event read{text_of(icalcomponent_get_summary(event)),
                       icaltime_as_ical_string(start),
                       icaltime_as_ical_string(icalcomponent_get_dtend(event)),
                       text_of(icalcomponent_get_description(event)),
                       text_of(icalcomponent_get_location(event)),
                       start.is_date != 0};
      EXPECT_TRUE(events.emplace(icalcomponent_get_uid(event), read).second) << icalcomponent_get_uid(event);
    }
    return events;
  }

  std::map<std::string, Event> EventsOf(const std::vector<std::string>& arguments) {
    const Answer answer = Run(arguments);
    EXPECT_EQ(answer.code, 0) << answer.err;
    return Read(answer.out);
  }
};

TEST_F(Calendar, AnIndependentReaderFindsEveryPass) {
  const std::vector<std::string> arguments{"passes", "25544", "NOAA 15", "--days", "3", "--format"};
  auto asJson = arguments;
  asJson.emplace_back("json");
  auto asCalendar = arguments;
  asCalendar.emplace_back("ical");
  const Json passes = Run(asJson).OutAsJson()["passes"];
  const auto events = EventsOf(asCalendar);
  EXPECT_EQ(events.size(), passes.size());
  for (const Json& pass : passes) {
    const std::string uid = std::to_string(pass["catalogue_number"].get<int>()) + "-" +
                            std::to_string(pass["orbit_number"].get<int>()) + "-51.5n0e@kestrava";
    ASSERT_TRUE(events.contains(uid)) << uid;
    const std::string day = pass["start_time"].get<std::string>().substr(8, 2);
    EXPECT_EQ(events.at(uid).start.substr(6, 2), day);
    EXPECT_EQ(events.at(uid).start.back(), 'Z');
    EXPECT_LT(events.at(uid).start, events.at(uid).end);
    EXPECT_NE(events.at(uid).description.find(pass["start_time"].get<std::string>()), std::string::npos);
    EXPECT_EQ(events.at(uid).location, "London");
  }
}

TEST_F(Calendar, ASecondImportReplacesTheFirst) {
  const auto first = EventsOf({"passes", "25544", "--days", "3", "--format", "ical"});
  clock.AdvanceMs(3600e3);
  const auto later = EventsOf({"passes", "25544", "--days", "3", "--format", "ical"});
  int common = 0;
  for (const auto& [uid, event] : later) {
    if (!first.contains(uid)) continue;
    ++common;
    EXPECT_EQ(first.at(uid).start, event.start) << uid;
  }
  EXPECT_GE(common + 2, static_cast<int>(first.size()));
}

TEST_F(Calendar, PassesOverAnotherPlaceDoNotReplaceTheFirst) {
  const auto uidsAt = [&](const char* at) {
    std::set<std::string> uids;
    const auto events = EventsOf({"passes", "25544", "--days", "2", "--format", "ical", "--at", at});
    for (const auto& [uid, event] : events) uids.insert(uid);
    return uids;
  };
  const std::set<std::string> here = uidsAt("51.5,0,30");
  EXPECT_EQ(uidsAt("51.5001,-0.0001,80"), here) << "the same house, measured better";
  for (const std::string& uid : uidsAt("52.3,-0.1")) {
    EXPECT_FALSE(here.contains(uid)) << uid;
    EXPECT_TRUE(uid.ends_with("-52.3n0.1w@kestrava")) << uid;
  }
}

TEST_F(Calendar, PassesOfOneOrbitKeepDifferentNamesWhereverTheListBegins) {
  // Near the equator orbits are counted overhead, and a long orbit comes into view more than once.
  std::map<std::string, std::string> startOf;
  for (const auto* from : {"2026-11-15", "2026-11-15T05:00", "2026-11-16", "2026-11-16T07:30", "2026-11-17"}) {
    for (const auto* satellite : {"NOAA 15", "MOLNIYA 3-50", "ISS (ZARYA)"}) {
      const auto events =
          EventsOf({"passes", satellite, "--from", from, "--days", "6", "--at", "0,30,0", "--format", "ical"});
      EXPECT_GT(events.size(), 5u);
      for (const auto& [uid, event] : events) {
        const auto known = startOf.emplace(uid, event.start).first;
        EXPECT_EQ(known->second.substr(0, 11), event.start.substr(0, 11)) << uid << " from " << from;
      }
    }
  }
}

TEST_F(Calendar, LinesAreFoldedAndEndAsTheFormatAsks) {
  PutSettings("Latitude=51.5\nLongitude=0\nHASL=30\nLocation Name=" + std::string(40, 'x') + ", \xC3\xA9\xC3\xA9" +
              std::string(60, 'y') + "; \\\\ end\n");  // the file escapes a backslash
  const Answer answer = Run({"passes", "25544", "--format", "ical"});
  std::size_t begin = 0;
  while (begin < answer.out.size()) {
    const std::size_t end = answer.out.find("\r\n", begin);
    ASSERT_NE(end, std::string::npos);
    EXPECT_LE(end - begin, 75u);
    EXPECT_EQ(answer.out.substr(begin, end - begin).find('\n'), std::string::npos);
    begin = end + 2;
  }
  const std::string place = std::string(40, 'x') + ", \xC3\xA9\xC3\xA9" + std::string(60, 'y') + "; \\ end";
  EXPECT_EQ(Read(answer.out).begin()->second.location, place);
}

TEST_F(Calendar, AnAllDayObjectIsAnEventOfTheWholeDay) {
  const auto events = EventsOf({"passes", "38552", "--from", "2026-11-15", "--days", "3", "--format", "ical"});
  ASSERT_EQ(events.size(), 3u);
  for (const auto& [uid, event] : events) EXPECT_TRUE(event.isDate) << uid;
}

TEST_F(Calendar, APassOfElevenHoursWithARiseAndASetIsAsLongAsItIs) {
  const std::vector<std::string> passes{"passes", "MOLNIYA 3-50", "--from",  "2026-11-15", "--days",
                                        "2",      "--at",         "40,-30,0"};
  const auto with = [&](const char* format) {
    std::vector<std::string> words = passes;
    words.insert(words.end(), {"--format", format});
    return words;
  };
  EXPECT_NE(Run(with("json")).out.find("\"all_day\": true"), std::string::npos) << "long enough for the mark";
  for (const auto& [uid, event] : EventsOf(with("ical"))) EXPECT_FALSE(event.isDate) << uid;
}

TEST_F(Calendar, AJobMayBecomeACalendar) {
  Put("pass.dat", "Mine\r\nISS (ZARYA);\r\n2\r\n0\r\n0\r\n");
  EXPECT_GT(EventsOf({"job", "Mine", "--format", "ical"}).size(), 3u);
}

}  // namespace
}  // namespace kestrava::cli
