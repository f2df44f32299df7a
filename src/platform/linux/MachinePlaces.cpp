#include "platform/linux/MachinePlaces.h"

#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "AtomicFile.h"

namespace kestrava::platform {

namespace fs = std::filesystem;

namespace {

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

fs::path HomeFolder() {
  const std::string home = Variable("HOME");
  if (!home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_dir ? user->pw_dir : "/";
}

fs::path XdgFolder(const char* variable, const char* below) {
  const fs::path given = Variable(variable);
  return given.is_absolute() ? given : HomeFolder() / below;
}

/// "Europe/Berlin" of any path into a folder of zones.
std::string BehindZoneFolder(const std::string& path) {
  constexpr std::string_view kFolder = "zoneinfo/";
  const std::size_t at = path.rfind(kFolder);
  return at == std::string::npos ? std::string() : path.substr(at + kFolder.size());
}

std::string FirstLineOf(const fs::path& file) {
  try {
    const auto lines = SplitLines(ReadAll(OpenFile(file, O_RDONLY).Get()));
    return lines.empty() ? std::string() : std::string(Trim(lines[0]));
  } catch (const Fault&) {
    return {};
  }
}

/// Degrees of "+DDMM", "+DDDMM", "+DDMMSS" or "+DDDMMSS" (ISO 6709).
double DegreesOf(std::string_view text, int degreeDigits) {
  const double sign = text[0] == '-' ? -1 : 1;
  text.remove_prefix(1);
  const auto part = [&](int from, int digits) {
    const auto start = static_cast<std::size_t>(from);
    return start < text.size() ? Val(text.substr(start, static_cast<std::size_t>(digits))) : 0.0;
  };
  return sign * (part(0, degreeDigits) + part(degreeDigits, 2) / 60 + part(degreeDigits + 2, 2) / 3600);
}

}  // namespace

bool NamesADisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"}) {
    if (!Variable(name).empty()) return true;
  }
  return Variable("XDG_SESSION_TYPE") == "wayland";  // its first socket has a name that everybody knows
}

fs::path DataHome() {
  return XdgFolder("XDG_DATA_HOME", ".local/share");
}

fs::path ConfigHome() {
  return XdgFolder("XDG_CONFIG_HOME", ".config");
}

std::string TimeZoneName(const ZoneSources& sources) {
  if (!sources.variable.empty()) {
    std::string name = sources.variable;
    if (name[0] == ':') name.erase(0, 1);
    const std::string below = BehindZoneFolder(name);
    return below.empty() ? name : below;
  }
  std::error_code error;
  const fs::path link = fs::read_symlink(sources.localTimeLink, error);
  const std::string linked = error ? std::string() : BehindZoneFolder(link.string());
  return linked.empty() ? FirstLineOf(sources.nameFile) : linked;
}

std::string MachineTimeZone() {
  ZoneSources sources;
  sources.variable = Variable("TZ");
  return TimeZoneName(sources);
}

std::optional<ZonePlace> PlaceOfZone(std::string_view zone, std::string_view table) {
  for (const std::string& line : SplitLines(table)) {
    const std::vector<std::string> fields = SplitAt(line, '\t');  // countries, coordinates, zone, remark
    if (BeginsWith(line, "#") || fields.size() < 3 || fields[2] != zone) continue;
    const std::string_view coordinates = fields[1];
    const std::size_t second = coordinates.find_first_of("+-", 1);
    if (second == std::string_view::npos) continue;
    return ZonePlace{std::string(zone), DegreesOf(coordinates.substr(0, second), 2),
                     DegreesOf(coordinates.substr(second), 3)};
  }
  return std::nullopt;
}

std::optional<ZonePlace> MachinePlace(const fs::path& zoneFolder) {
  const std::string zone = MachineTimeZone();
  for (const char* name : {"zone1970.tab", "zone.tab"}) {  // the second also knows zones that are links today
    try {
      auto place = PlaceOfZone(zone, ReadAll(OpenFile(zoneFolder / name, O_RDONLY).Get()));
      if (place) return place;
    } catch (const Fault&) {
      // a machine without the table: the next one
    }
  }
  return std::nullopt;
}

}  // namespace kestrava::platform
