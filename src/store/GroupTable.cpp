#include "store/GroupTable.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/Endpoints.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::store {

using platform::At;

namespace {

constexpr std::string_view kEndedMark = " (no longer published)";

constexpr std::array<ServerGroup, 27> kServerGroups{{
    {"Amateur", "amateur.txt"},
    {"Educational", "education.txt"},
    {"Engineering", "engineering.txt"},
    {"Geostationary", "geo.txt"},
    {"Geodetic", "geodetic.txt"},
    {"Globalstar", "globalstar.txt"},
    {"GOES Weather", "goes.txt"},
    {"Gorizont", "gorizont.txt", true},
    {"GPS Navigation", "gps-ops.txt"},
    {"IntelSat", "intelsat.txt"},
    {"Iridium", "iridium.txt", true},
    {"Molniya", "molniya.txt", true},
    {"Russian Navigation", "musson.txt"},
    {"Navy Navigation", "nnss.txt"},
    {"NOAA Weather", "noaa.txt", true},
    {"Orbcomm", "orbcomm.txt"},
    {"Other Comms", "other-comm.txt"},
    {"Radar Calibration", "radar.txt"},
    {"Raduga", "raduga.txt", true},
    {"Earth Resources", "resource.txt"},
    {"Search and Rescue", "sarsat.txt"},
    {"Space Stations", "stations.txt"},
    {"Tracking and Data Relay", "tdrss.txt"},
    {"New Launches", "tle-new.txt"},
    {"Bright and visual", "visual.txt"},
    {"Weather", "weather.txt"},
    {"Experimental", "x-comm.txt"},
}};

}  // namespace

int AddGroup(orbit::Tables& tables, const orbit::GroupRec& group) {
  const int row = tables.GroupCount + 1;
  At(tables.GroupList, row) = group;
  tables.GroupCount = static_cast<std::int16_t>(row);
  return row;
}

void RemoveGroup(orbit::Tables& tables, int row) {
  if (row < 1 || row > tables.GroupCount) throw platform::Fault::SubscriptOutOfRange();
  for (int i = row; i < tables.GroupCount; ++i) {
    At(tables.GroupList, i) = std::move(At(tables.GroupList, i + 1));
  }
  At(tables.GroupList, tables.GroupCount) = {};
  --tables.GroupCount;
}

std::span<const ServerGroup> ServerGroups() {
  return kServerGroups;
}

std::string OfferedText(const ServerGroup& group) {
  return std::string(group.name) + std::string(group.ended ? kEndedMark : "");
}

const ServerGroup* FindOffered(std::string_view offered) {
  const auto found = std::find_if(kServerGroups.begin(), kServerGroups.end(),
                                  [&](const ServerGroup& group) { return OfferedText(group) == offered; });
  return found == kServerGroups.end() ? nullptr : &*found;
}

orbit::GroupRec GroupOf(const ServerGroup& group) {
  return {std::string(group.name), platform::endpoints::ElementAddress(group.file), "0"};
}

std::string WithoutScheme(std::string_view address) {
  const std::string_view trimmed = platform::Trim(address);
  const std::size_t mark = trimmed.find("://");
  return std::string(mark == std::string_view::npos ? trimmed : trimmed.substr(mark + 3));
}

}  // namespace kestrava::store
