// "next", "where" and "list".
#include <algorithm>
#include <limits>

#include "orbit/Frames.h"
#include "orbit/PassSearch.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "store/ElementFiles.h"

#include "Answers.h"
#include "Moments.h"

namespace kestrava::cli {

using platform::SerialDate;

namespace {

double Degrees(double radians) {
  return radians / orbit::kRadPerDeg;
}

/// When a satellite comes and goes.
struct Coming {
  std::string satellite;
  int catalogueNumber = 0;
  Value inView = std::monostate();  ///< nothing while the elements give no position
  SerialDate rise = orbit::kNoSuchMoment;
  SerialDate set = orbit::kNoSuchMoment;

  bool IsInView() const { return std::holds_alternative<bool>(inView) && std::get<bool>(inView); }
  bool HasAny() const { return IsInView() || rise != orbit::kNoSuchMoment || set != orbit::kNoSuchMoment; }
  /// Those without a rise come last.
  double SortKey() const { return rise == orbit::kNoSuchMoment ? std::numeric_limits<double>::infinity() : rise; }
};

Value MomentOrNothing(SerialDate utc) {
  if (utc == orbit::kNoSuchMoment) return std::monostate();
  return Moment{utc};
}

Value AzimuthAt(Station& station, const Coming& coming, SerialDate utc) {
  if (utc == orbit::kNoSuchMoment) return std::monostate();
  return Degrees(station.Engine().LookAngle(coming.satellite, utc).azimuthRad);
}

std::vector<Coming> ComingsAfter(Station& station, const std::vector<std::string>& satellites, SerialDate utc) {
  std::vector<Coming> comings;
  for (const std::string& satellite : satellites) {
    Coming coming{satellite, station.Engine().CatalogueNumber(satellite)};
    try {
      coming.rise = station.Engine().NextAOSTime(satellite, utc);
      coming.set = station.Engine().NextLOSTime(satellite, utc);
      coming.inView = station.Engine().LookAngle(satellite, utc).elevationRad > 0;
    } catch (const platform::Fault& fault) {
      station.Note(satellite + ": " + fault.what());
    }
    comings.push_back(coming);
  }
  std::stable_sort(comings.begin(), comings.end(),
                   [](const auto& a, const auto& b) { return a.SortKey() < b.SortKey(); });
  return comings;
}

/// What was asked for, or all favourites that the engine has (a line of a few letters may pass as a favourite).
std::vector<std::string> AskedOrFavourites(Station& station, const Request& request) {
  if (!request.names.empty()) return station.Resolve(request.names);
  std::vector<std::string> known;
  for (const std::string& name : station.Favourites()) {
    const std::string found = station.Find(name);
    if (found.empty()) station.Note("no satellite is called '" + name + "'");
    if (!found.empty()) known.push_back(found);
  }
  if (known.empty()) throw NotFound("there are no favourites; name a satellite");
  return known;
}

Records Satellites(const Station& station, const orbit::OrbitEngine& engine) {
  Records records{{{"satellite", "Satellite", ""}, {"catalogue_number", "Number", ""}, {"epoch", "Elements of", ""}},
                  {}};
  for (const std::string& name : station.Satellites()) {
    records.rows.push_back({name, engine.CatalogueNumber(name), Moment{engine.Model(name).Epoch().Serial()}});
  }
  return records;
}

Records FavouritesOf(Station& station) {
  Records records{{{"satellite", "Satellite", ""}, {"catalogue_number", "Number", ""}}, {}};
  for (const std::string& name : station.Favourites()) {
    const std::string found = station.Find(name);
    std::vector<Value>& row = records.rows.emplace_back();
    row.emplace_back(name);
    row.emplace_back();
    if (!found.empty()) row.back() = station.Engine().CatalogueNumber(found);
  }
  return records;
}

Records GroupsOf(Station& station) {
  Records records{{{"group", "Group", ""},
                   {"file", "File", ""},
                   {"address", "", ""},
                   {"kept_by_hand", "By hand", ""},
                   {"file_is_there", "There", ""}},
                  {}};
  station.LoadGroups();
  for (int row = 1; row <= station.Tables().GroupCount; ++row) {
    const orbit::GroupRec& group = platform::At(station.Tables().GroupList, row);
    const std::string file = store::ElementFileOf(group);
    const bool isThere = !file.empty() && platform::FileExists(platform::InAppDir(file));
    records.rows.push_back({group.Name, file, group.Address, group.Manual == "1", isThere});
  }
  return records;
}

/// CSV has no place for what holds for all rows but in each of them.
Records WithPlace(const Records& records, const Place& place) {
  Records placed = records;
  placed.columns.insert(placed.columns.end(), {{"observer_name", "", ""},
                                               {"observer_latitude_north_deg", "", ""},
                                               {"observer_longitude_east_deg", "", ""},
                                               {"observer_height_m", "", ""}});
  for (std::vector<Value>& row : placed.rows) {
    const auto& [latitudeDeg, longitudeDeg, heightM] = place.observer;
    row.insert(row.end(), {place.name, latitudeDeg, place.longitudeEastDeg, heightM});
  }
  return placed;
}

}  // namespace

void WriteRecords(std::ostream& out, Format format, const Frame& frame, const Records& records) {
  if (format == Format::kJson) {
    WriteJson(out, frame, records);
  } else if (format == Format::kCsv) {
    WriteCsv(out, frame.observer ? WithPlace(records, *frame.observer) : records);
  } else if (!records.rows.empty()) {
    if (frame.observer) WritePlaceLine(out, *frame.observer);
    WriteText(out, records);
  }
}

void AnswerNext(Station& station, const Request& request, std::ostream& out) {
  const SerialDate utc = ParseMoment(request.moment);
  Records records{{{"satellite", "Satellite", ""},
                   {"catalogue_number", "", ""},
                   {"in_view", "In view", ""},
                   {"next_rise", "Next rise", ""},
                   {"rise_azimuth_deg", "Azimuth", "000", kDegreeDecimals},
                   {"next_set", "Next set", ""},
                   {"set_azimuth_deg", "Azimuth", "000", kDegreeDecimals}},
                  {}};
  bool any = false;
  const std::vector<std::string> asked = AskedOrFavourites(station, request);
  station.NoteOldElements(asked, utc);
  for (const Coming& coming : ComingsAfter(station, asked, utc)) {
    any = any || coming.HasAny();
    records.rows.push_back({coming.satellite, coming.catalogueNumber, coming.inView, MomentOrNothing(coming.rise),
                            AzimuthAt(station, coming, coming.rise), MomentOrNothing(coming.set),
                            AzimuthAt(station, coming, coming.set)});
  }
  WriteRecords(out, request.format, {station.Observer(), {{"time", Moment{utc}}}, "next"}, records);
  if (!any) throw NotFound("nothing rises within 30 days of " + IsoText(utc));
}

void AnswerWhere(Station& station, const Request& request, std::ostream& out) {
  const SerialDate utc = ParseMoment(request.moment);
  Records records{{{"satellite", "Satellite", ""},
                   {"catalogue_number", "", ""},
                   {"time", "Time", ""},
                   {"azimuth_deg", "Azimuth", "000.0", kDegreeDecimals},
                   {"elevation_deg", "Elevation", "0.0", kDegreeDecimals},
                   {"range_km", "Range km", "0", kKmDecimals},
                   {"range_rate_km_s", "", "", kSpeedDecimals},
                   {"height_km", "Height km", "0", kKmDecimals},
                   {"latitude_north_deg", "North", "0.00", kDegreeDecimals},
                   {"longitude_east_deg", "East", "0.00", kDegreeDecimals},
                   {"orbit_number", "Orbit", ""}},
                  {}};
  const std::vector<std::string> asked = station.Resolve(request.names);
  station.NoteOldElements(asked, utc);
  bool any = false;
  for (const std::string& name : asked) {
    std::vector<Value>& row = records.rows.emplace_back();
    row = {name, station.Engine().CatalogueNumber(name), Moment{utc}};
    try {
      const orbit::ObjectPlace place = station.Engine().PlaceOf(name, utc);
      row.insert(row.end(), {Degrees(place.look.azimuthRad), Degrees(place.look.elevationRad), place.look.rangeKm,
                             place.look.rangeRateKmS, place.subPoint.heightKm, Degrees(place.subPoint.latitudeRad),
                             EastDeg(Degrees(place.subPoint.longitudeRad)), place.revolution});
      any = true;
    } catch (const platform::Fault& fault) {
      station.Note(name + ": " + fault.what());
    }
    row.resize(records.columns.size());  // nothing is known: dashes, as in the windows
  }
  WriteRecords(out, request.format, {station.Observer(), {{"time", Moment{utc}}}, "satellites"}, records);
  if (!any) throw NotFound("no position at " + IsoText(utc));
}

void AnswerList(Station& station, const Request& request, std::ostream& out) {
  const Records records = request.listed == "groups"       ? GroupsOf(station)
                          : request.listed == "favourites" ? FavouritesOf(station)
                                                           : Satellites(station, station.Engine());
  WriteRecords(out, request.format, {std::nullopt, {}, request.listed}, records);
  if (records.rows.empty()) throw NotFound("there are no " + request.listed + " in " + platform::AppDir);
}

}  // namespace kestrava::cli
