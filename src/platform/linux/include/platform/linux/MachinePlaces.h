// Where this machine keeps a user's things, where on Earth it believes to be, and whether it has a display. Used by
// main at start-up.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kestrava::platform {

/// XDG data home: $XDG_DATA_HOME if it is an absolute path, else ~/.local/share.
std::filesystem::path DataHome();
/// XDG config home: $XDG_CONFIG_HOME if it is an absolute path, else ~/.config.
std::filesystem::path ConfigHome();

/// Whether the environment names a display that windows can stand on, or another platform for them.
bool NamesADisplay();

/// What a machine tells about its time zone.
struct ZoneSources {
  std::string variable;                                    // the value of TZ; empty if it is not set
  std::filesystem::path localTimeLink = "/etc/localtime";  // a link into the folder of zones
  std::filesystem::path nameFile = "/etc/timezone";        // a file that holds the name
};

/// Name of the time zone such as "Europe/Berlin"; empty if the machine does not tell one (or only an offset).
std::string TimeZoneName(const ZoneSources& sources);
/// The same from this machine's TZ and files.
std::string MachineTimeZone();

struct ZonePlace {
  std::string zone;
  double latitudeDeg = 0;       // north positive
  double longitudeEastDeg = 0;  // east positive, -180..180
};

/// The main place of a zone from the text of zone1970.tab or zone.tab (ISO 6709 coordinates); none if it is not there.
std::optional<ZonePlace> PlaceOfZone(std::string_view zone, std::string_view table);

/// The main place of this machine's time zone, good enough for sunrise until the user has told his own.
std::optional<ZonePlace> MachinePlace(const std::filesystem::path& zoneFolder = "/usr/share/zoneinfo");

}  // namespace kestrava::platform
