// "passes" and "job".
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <numbers>
#include <utility>

#include "orbit/Satcalc.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "predict/PassCalc.h"
#include "predict/PassJobs.h"
#include "predict/PassText.h"

#include "Answers.h"
#include "Calendar.h"
#include "Moments.h"

namespace kestrava::cli {

using platform::SerialDate;
using predict::PassFacts;

namespace {

using Passes = std::vector<PassFacts>;

/// What passes are looked for.
struct Search {
  std::vector<std::string> satellites;
  SerialDate fromUtc = 0;
  SerialDate toUtc = 0;
  bool endWithin = false;  ///< only passes that end within, as a job's days have them; else those that start within
};

void SortByStart(Passes& passes) {
  std::stable_sort(passes.begin(), passes.end(), [](const auto& a, const auto& b) { return a.riseUtc < b.riseUtc; });
}

Passes FindAll(Station& station, const Search& search, bool visibleOnly) {
  Passes all;
  for (const std::string& satellite : search.satellites) {
    Passes found = predict::FindPasses(station.Engine(), satellite, search.fromUtc, search.toUtc - search.fromUtc,
                                       station.MinimumElevationDeg());
    std::erase_if(found, [&](const PassFacts& pass) {
      return (visibleOnly && !pass.visible) || (search.endWithin && pass.setUtc >= search.toUtc);
    });
    all.insert(all.end(), found.begin(), found.end());
  }
  SortByStart(all);
  return all;
}

/// Names the passes of one satellite. Two passes may fall into one orbit, where it is a long one or where the place
/// lies near the equator, at which orbits are counted. So that the second keeps its name whenever a list begins, the
/// passes of the orbit before the list are counted, too.
class PassNames {
 public:
  PassNames(Station& station, const std::string& satellite, SerialDate fromUtc, SerialDate toUtc)
      : place_(station.Observer()) {
    constexpr double kFewestRadPerMin = 2 * std::numbers::pi / (5 * platform::kMinutesPerDay);
    const double motion = std::max(station.Engine().Model(satellite).MeanMotionRadPerMin(), kFewestRadPerMin);
    const double orbitDays = 2 * std::numbers::pi / motion / platform::kMinutesPerDay;
    const double from = fromUtc - orbitDays - 1;
    all_ = predict::FindPasses(station.Engine(), satellite, from, toUtc - from, -90);
  }

  std::string UidOf(const PassFacts& pass) const {
    int ordinal = 1;
    for (const PassFacts& other : all_) {
      constexpr double kHalfMinute = 0.5 / platform::kMinutesPerDay;
      const bool before = other.riseUtc < pass.riseUtc - kHalfMinute;
      if (before && other.revolution == pass.revolution) ++ordinal;
    }
    return cli::UidOf(pass.catalogueNumber, pass.revolution, ordinal, place_);
  }

 private:
  const Place place_;
  Passes all_;
};

std::vector<PassEvent> EventsOf(Station& station, const Search& search, const Passes& passes) {
  std::map<std::string, PassNames> names;
  std::vector<PassEvent> events;
  for (const PassFacts& pass : passes) {
    auto known = names.find(pass.satellite);
    if (known == names.end()) {
      known = names.emplace(pass.satellite, PassNames(station, pass.satellite, search.fromUtc, search.toUtc)).first;
    }
    events.push_back({pass, known->second.UidOf(pass)});
  }
  return events;
}

Records RecordsOf(const Passes& passes) {
  Records records{{{"satellite", "", ""},
                   {"catalogue_number", "", ""},
                   {"orbit_number", "", ""},
                   {"start_time", "", ""},
                   {"max_elevation_time", "", ""},
                   {"end_time", "", ""},
                   {"duration_s", "", ""},
                   {"max_elevation_deg", "", "", kDegreeDecimals},
                   {"start_azimuth_deg", "", "", kDegreeDecimals},
                   {"max_elevation_azimuth_deg", "", "", kDegreeDecimals},
                   {"end_azimuth_deg", "", "", kDegreeDecimals},
                   {"all_day", "", ""},
                   {"sunlit", "", ""},
                   {"visible", "", ""}},
                  {}};
  for (const PassFacts& pass : passes) {
    const double durationS = std::round((pass.setUtc - pass.riseUtc) * platform::kSecondsPerDay * 1000) / 1000;
    records.rows.push_back({pass.satellite, pass.catalogueNumber, pass.revolution, Moment{pass.riseUtc},
                            Moment{pass.highestUtc}, Moment{pass.setUtc}, durationS, pass.highestElevationDeg,
                            pass.riseAzimuthDeg, pass.highestAzimuthDeg, pass.setAzimuthDeg, pass.allDay, pass.sunlit,
                            pass.visible});
  }
  return records;
}

/// A row as the window has it, but with the zone's offset of its own date.
predict::PassRow RowOf(const PassFacts& pass) {
  const SerialDate local = platform::TheClock().LocalAt(pass.riseUtc);
  const platform::DateParts start = platform::SplitSerial(local);
  const auto azimuth = [](double degrees) { return platform::Format(platform::RoundHalfEven(degrees), "000"); };
  predict::PassRow row;
  row[predict::kSatelliteCell] = pass.satellite;
  row[predict::kDateCell] =
      orbit::DateText(static_cast<std::int16_t>(start.day), static_cast<std::int16_t>(start.month),
                      static_cast<std::int16_t>(start.year));
  row[predict::kTimeCell] = pass.allDay ? "00:00:00" : platform::Format(local, "hh:mm:ss");
  row[predict::kStartAzimuthCell] = azimuth(pass.riseAzimuthDeg);
  row[predict::kMaxElevationCell] = platform::Format(predict::WholeDegrees(pass.highestElevationDeg), "00") + " (AZ " +
                                    azimuth(pass.highestAzimuthDeg) + ")";
  row[predict::kDurationCell] = pass.allDay ? "24 Hours" : platform::Format(pass.setUtc - pass.riseUtc, "hh:mm:ss");
  row[predict::kEndAzimuthCell] = azimuth(pass.setAzimuthDeg);
  row[predict::kSunlitCell] = predict::YesNoCell(pass.sunlit);
  row[predict::kVisibleCell] = predict::YesNoCell(pass.visible);
  return row;
}

void WriteRow(std::ostream& out, const predict::PassRow& row) {
  out << predict::RowText(row) << '\n';
}

void WritePassText(std::ostream& out, const Place& place, const Passes& passes) {
  if (passes.empty()) return;
  WritePlaceLine(out, place);
  out << predict::kPassHeading << '\n';
  for (const PassFacts& pass : passes) WriteRow(out, RowOf(pass));
}

void WritePasses(Station& station, const Request& request, const Search& search, std::ostream& out) {
  const Passes passes = FindAll(station, search, request.visibleOnly);
  if (request.format == Format::kText) {
    WritePassText(out, station.Observer(), passes);
  } else if (request.format == Format::kICal) {
    WriteCalendar(out, station.Observer(), EventsOf(station, search, passes));
  } else {
    Frame frame{station.Observer(), {}, "passes"};
    if (request.word == Word::kJob) frame.facts.emplace_back("job", request.names.front());
    frame.facts.emplace_back("from", Moment{search.fromUtc});
    frame.facts.emplace_back("to", Moment{search.toUtc});
    frame.facts.emplace_back("min_elevation_deg", station.MinimumElevationDeg());
    frame.facts.emplace_back("visible_only", request.visibleOnly);
    WriteRecords(out, request.format, frame, RecordsOf(passes));
  }
  if (passes.empty()) {
    throw NotFound("no passes from " + IsoText(search.fromUtc) + " to " + IsoText(search.toUtc) + " over " +
                   PlaceText(station.Observer()) + ", minimum elevation " +
                   platform::PointText(station.MinimumElevationDeg()) + " degrees" +
                   (request.visibleOnly ? ", visible by eye" : ""));
  }
}

/// The satellites of a job that the engine knows, in the order of the file and as they are written there.
std::vector<std::string> SatellitesOf(Station& station, const predict::PassJob& job) {
  std::vector<std::string> satellites;
  if (const std::string beyond = predict::BeyondText(job); !beyond.empty()) station.Note(beyond);
  for (int row = 1; row <= std::min<int>(job.satelliteCount, predict::kJobRows); ++row) {
    const std::string& name = platform::At(job.satellites, row);
    if (station.Engine().Knows(name)) {
      satellites.push_back(name);
    } else {
      station.Note("no satellite is called '" + name + "'; the job goes on without it");
    }
  }
  return satellites;
}

/// With the one that a run left in its wizard when it was killed.
std::vector<std::string> SavedJobs() {
  try {
    predict::PutBackEditedJob();
  } catch (const platform::Fault&) {  // the windows say why
    return predict::ListJobs();
  }
  return predict::ListJobs();
}

predict::PassJob JobOf(const std::string& name) {
  const std::vector<std::string> jobs = SavedJobs();
  if (const auto job = predict::ReadJob(platform::Trim(name))) return *job;
  if (jobs.empty()) throw NotFound("there are no saved jobs in " + platform::AppDir);
  throw NotFound("no job is called '" + name + "'." + DidYouMean(NearNames(name, jobs)) +
                 " kestrava jobs lists them all");
}

/// The rows of the window: day by day, each day satellite by satellite, with its own rules of time and rounding.
void WriteWindowRows(Station& station, const Request& request, const Search& search, SerialDate firstDay, int days,
                     std::ostream& out) {
  platform::WriteSetting("WxEL", platform::NumberText(station.MinimumElevationDeg()));  // of this run alone
  const orbit::Sky sky{station.Tables(), station.Engine()};
  predict::PassTable table;
  predict::PassTally tally;
  for (int day = 0; day < days; ++day) {
    const platform::DateParts date = platform::SplitSerial(firstDay + day);
    for (const std::string& satellite : search.satellites) {
      tally += predict::CalcResults(sky, table, satellite, platform::ToInt16(date.day), platform::ToInt16(date.month),
                                    platform::ToInt16(date.year), request.visibleOnly);
    }
  }
  const predict::PassSubject subject{"the job '" + request.names.front() + "'", firstDay, days};
  const std::string status = predict::StatusText(tally, subject, table.RowCount());
  if (table.RowCount() == 0) throw NotFound(status);
  WritePlaceLine(out, station.Observer());
  out << predict::kPassHeading << '\n';
  for (const predict::PassRow& row : table.Rows()) WriteRow(out, row);
  station.Note(status);
}

}  // namespace

void AnswerPasses(Station& station, const Request& request, std::ostream& out) {
  Search search;
  search.satellites = station.Resolve(request.names);
  search.fromUtc = ParseMoment(request.moment);
  station.NoteOldElements(search.satellites, search.fromUtc);
  search.toUtc = UtcOfLocal(platform::TheClock().LocalAt(search.fromUtc) + request.days);  // days of the calendar
  WritePasses(station, request, search, out);
}

void AnswerJob(Station& station, const Request& request, std::ostream& out) {
  constexpr int kMostDays = 400;
  const predict::PassJob job = JobOf(request.names.front());
  if (job.days > kMostDays) throw NotFound("the job asks for " + std::to_string(job.days) + " days; 400 are the most");
  Search search;
  search.satellites = SatellitesOf(station, job);
  search.fromUtc = LocalMidnight(ParseMoment(request.moment));
  station.NoteOldElements(search.satellites, search.fromUtc);
  const SerialDate firstDay = std::floor(platform::TheClock().LocalAt(search.fromUtc) + 0.5 / platform::kMinutesPerDay);
  const int days = std::max<int>(0, job.days);
  search.toUtc = UtcOfLocal(firstDay + days);
  search.endWithin = true;
  if (request.format == Format::kText) {
    WriteWindowRows(station, request, search, firstDay, days, out);
  } else {
    search.satellites = station.Resolve(search.satellites);  // one that stands there twice has its passes once
    WritePasses(station, request, search, out);
  }
}

void AnswerJobs(Station& /*station*/, const Request& request, std::ostream& out) {
  Records records{{{"job", "Job", ""},
                   {"days", "Days", ""},
                   {"satellite_count", "Satellites", ""},
                   {"satellites", "", ""},
                   {"saves_to_file", "Saves", ""},
                   {"prints", "Prints", ""}},
                  {}};
  for (const std::string& name : SavedJobs()) {
    const auto job = predict::ReadJob(name);
    if (!job) continue;
    const auto first = job->satellites.begin() + 1;
    const std::vector<std::string> satellites(first, first + std::min<int>(job->satelliteCount, predict::kJobRows));
    records.rows.push_back(
        {name, static_cast<int>(job->days), static_cast<int>(job->satelliteCount), satellites, job->save, job->print});
  }
  WriteRecords(out, request.format, {std::nullopt, {}, "jobs"}, records);
  if (records.rows.empty()) throw NotFound("there are no saved jobs in " + platform::AppDir);
}

}  // namespace kestrava::cli
