#include "store/Favourites.h"

#include <cstdint>
#include <string>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Rewrite.h"

namespace kestrava::store {

using platform::At;

namespace {

constexpr std::string_view kFile = "faves.dat";
constexpr std::size_t kNameCharacters = 15;
constexpr int kLastRowWritten = orbit::kFaveRows - 1;  // the loop of the writer has always ended one row early

void SaveFavesBut(orbit::Tables& tables, Lines leftOut) {
  Lines lines;
  for (int i = 1; i <= kLastRowWritten; ++i) {
    const std::string& name = At(tables.FaveList, i).Name;
    if (!IsBlank(name)) lines.push_back(platform::Left(name, kNameCharacters));
  }
  const std::string& unwritten = At(tables.FaveList, orbit::kFaveRows).Name;
  if (!IsBlank(unwritten)) leftOut.push_back(unwritten);
  RewriteFile(kFile, lines, leftOut, "Global SaveFaves");
  tables.FaveCount = static_cast<std::int16_t>(lines.size());
}

}  // namespace

void LoadFaves(orbit::Tables& tables, std::string_view satelliteNames) {
  platform::TextReader reader(platform::InAppDir(kFile));
  const std::string known = platform::ToCapitals(satelliteNames);
  Lines unknown;
  int row = 1;
  while (!reader.AtEnd()) {
    const std::string& line = reader.ReadLine();
    if (IsBlank(line)) continue;
    if (!platform::Contains(known, platform::ToCapitals(line))) {
      unknown.push_back(line);
      continue;
    }
    At(tables.FaveList, row).Name = platform::Trim(line);
    ++row;
  }
  tables.FaveCount = static_cast<std::int16_t>(row - 1);
  for (; row <= orbit::kFaveRows; ++row) At(tables.FaveList, row).Name.clear();
  SaveFavesBut(tables, std::move(unknown));
}

void LoadFaves(orbit::Tables& tables, const orbit::OrbitEngine& engine) {
  LoadFaves(tables, engine.SatelliteNames());
}

void SaveFaves(orbit::Tables& tables) {
  SaveFavesBut(tables, {});
}

}  // namespace kestrava::store
