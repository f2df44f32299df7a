// The JSON form of records. Alone in its file: the library is large, and nothing else needs it.
#include <nlohmann/json.hpp>

#include "Moments.h"
#include "Records.h"

namespace kestrava::cli {

namespace {

using Json = nlohmann::ordered_json;

struct JsonOf {
  int decimals = kAsIs;
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(int value) const { return value; }
  Json operator()(double value) const { return WithDecimals(value, decimals); }
  Json operator()(const std::string& value) const { return value; }
  Json operator()(const Moment& moment) const { return IsoText(moment.utc); }
  Json operator()(const std::vector<std::string>& names) const { return names; }
};

Json ObserverOf(const Place& place) {
  Json observer = Json::object();
  if (!place.name.empty()) observer["name"] = place.name;
  observer["latitude_north_deg"] = place.observer.latitudeDeg;
  observer["longitude_east_deg"] = place.longitudeEastDeg;
  observer["height_m"] = place.observer.heightM;
  return observer;
}

Json RowOf(const Records& records, const std::vector<Value>& row) {
  Json object = Json::object();
  for (std::size_t i = 0; i < row.size(); ++i)
    object[std::string(records.columns[i].key)] = std::visit(JsonOf{records.columns[i].decimals}, row[i]);
  return object;
}

}  // namespace

void WriteJson(std::ostream& out, const Frame& frame, const Records& records) {
  Json document = Json::object();
  if (frame.observer) document["observer"] = ObserverOf(*frame.observer);
  for (const auto& [key, value] : frame.facts) document[key] = std::visit(JsonOf(), value);
  Json rows = Json::array();
  for (const auto& row : records.rows) rows.push_back(RowOf(records, row));
  document[frame.rowsKey] = std::move(rows);
  out << document.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace kestrava::cli
