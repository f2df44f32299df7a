#include "shell/GpsNames.h"

#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::shell {

namespace {

constexpr std::string_view kGpsFile = "gps-ops.txt";
constexpr std::string_view kNewFile = "gps-ops.new";
constexpr std::string_view kBlockName = "GPS ";
constexpr std::string_view kPrnMark = "(PRN";

enum class Outcome { kConverted, kAlreadyConverted };

/// Reads the whole file into `out` with its names changed; ends at the first name without a number in brackets.
Outcome ConvertLines(platform::TextReader& in, platform::TextWriter& out, const platform::FaultTrap& trap) {
  while (!in.AtEnd()) {
    std::string line = in.ReadLine();
    if (platform::BeginsWith(line, kBlockName)) {
      bool converted = false;
      trap([&] {
        if (const auto renamed = GpsNameByPrn(line)) {
          line = *renamed;
        } else {
          converted = true;
        }
      });
      if (converted) return Outcome::kAlreadyConverted;
    }
    out.WriteLine(line);
  }
  return Outcome::kConverted;
}

/// One rename puts the new file in the old one's place: a kill leaves one of them whole.
void PutInPlace(const platform::TextWriter& converted) {
  platform::Files& files = platform::TheFiles();
  const auto gpsFile = platform::InAppDir(kGpsFile);
  const auto newFile = platform::InAppDir(kNewFile);
  const platform::SerialDate date = files.ModifiedLocal(gpsFile);
  converted.ReplaceFile(newFile);
  files.SetModifiedUtc(newFile, orbit::LocalToUTC(date));
  files.Rename(newFile, gpsFile);
}

}  // namespace

std::optional<std::string> GpsNameByPrn(std::string_view line) {
  const std::size_t open = line.find(kPrnMark);
  if (open == std::string_view::npos) return std::nullopt;
  const std::size_t close = line.find(')', open + 1);
  if (close == std::string_view::npos) throw platform::Fault::InvalidCall();
  return std::string(kBlockName) + std::string(line.substr(open + 1, close - open - 1));
}

void MAIN_FIXGPSKEPS() {
  const platform::FaultTrap trap{"MAIN_FIXGPSKEPS"};
  const auto gpsFile = platform::InAppDir(kGpsFile);
  if (!platform::FileExists(gpsFile)) return;
  trap([&] {
    platform::TextReader in(gpsFile);
    platform::TextWriter out(in.WasLatin1());
    if (ConvertLines(in, out, trap) == Outcome::kConverted) PutInPlace(out);
  });
  trap([&] {
    const auto newFile = platform::InAppDir(kNewFile);
    if (platform::FileExists(newFile)) platform::TheFiles().Remove(newFile);
  });
}

}  // namespace kestrava::shell
