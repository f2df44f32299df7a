#include "store/SatelliteData.h"

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::store {

namespace {

constexpr std::string_view kFile = "satellite.dat";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlockEnd = "***";

std::string WithoutHyphens(std::string_view text) {
  return platform::ReplaceAll(text, "-", " ");
}

/// Reads on to the block whose first line occurs in the key. @return false at the end of the file
/// @throws platform::Fault if the last block has no end mark
bool FindBlock(platform::TextReader& reader, std::string_view key) {
  while (!reader.AtEnd()) {
    std::string line = reader.ReadLine();
    if (platform::Contains(key, WithoutHyphens(line))) return true;
    while (!platform::BeginsWith(line, kBlockEnd)) line = reader.ReadLine();
  }
  return false;
}

/// The description of the block that the reader stands in, built up line by line.
class Description {
 public:
  explicit Description(std::string_view name) : text_("Data for ") { text_.append(name).append(kLineEnd); }

  void Take(std::string_view line) {
    const std::string tag = platform::Left(line, 6);
    const std::string whole = platform::Mid(line, 8);
    const std::string_view rest = platform::Trim(whole);
    if (tag == "NAME  ") Add("(", rest, ")");
    if (tag == "NOTES ") notes_ = rest;  // of several the last wins
    if (tag == "BEACON") Add("Beacon: ", rest);
    if (tag == "UPLINK") Add("Uplink: ", rest);
    if (tag == "DNLINK") Add("Downlink: ", rest);
  }

  std::string Text() const { return text_ + "Notes: " + notes_; }

 private:
  void Add(std::string_view before, std::string_view rest, std::string_view behind = {}) {
    text_.append(before).append(rest).append(behind).append(kLineEnd);
  }

  std::string text_;
  std::string notes_;
};

/// The description of a block: reads up to its end mark. A block without one would be read for ever, one fault after
/// the other; the first ends it.
std::string DescribeBlock(platform::TextReader& reader, std::string_view name, const platform::FaultTrap& trap) {
  Description description(name);
  trap([&] {
    for (std::string line; !platform::BeginsWith(line, kBlockEnd);) {
      line = reader.ReadLine();
      description.Take(line);
    }
  });
  return description.Text();
}

}  // namespace

std::string SatelliteDataFunc(std::string_view name) {
  const platform::FaultTrap trap{"Global SatelliteDataFunc"};
  const std::filesystem::path file = platform::InAppDir(kFile);
  if (!platform::FileExists(file)) {
    platform::TheMessages().Show("Satellite.dat file is missing !!");
    return {};
  }
  const std::string key(platform::Trim(WithoutHyphens(name)));
  std::string text;
  trap([&] {
    platform::TextReader reader(file);
    if (FindBlock(reader, key)) text = DescribeBlock(reader, name, trap);
  });
  return text;
}

}  // namespace kestrava::store
