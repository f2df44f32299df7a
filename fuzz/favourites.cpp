// faves.dat: any bytes are loaded or break off with a fault; the rewrite holds known names only, each of 15 characters,
// and comes back byte for byte.
#include "store/Favourites.h"

#include "orbit/Tables.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::string_view kKnown = R"~("ISS (ZARYA)","NOAA 19","METEOR-M 2","ÄÖ-1","AO-7","ABCDEFGHIJKLMNO")~";
  kestrava::fuzz::DataFile file("faves.dat", kestrava::fuzz::TextOf(data, size));
  auto tables = std::make_unique<kestrava::orbit::Tables>();
  if (!kestrava::fuzz::Survives([&] { kestrava::store::LoadFaves(*tables, kKnown); })) {
    Check(file.Content() == kestrava::fuzz::TextOf(data, size), "a load that broke off leaves the file alone");
    return 0;
  }
  const std::vector<std::string> lines = kestrava::platform::SplitLines(file.Content());
  Check(lines.size() == static_cast<std::size_t>(tables->FaveCount), "the count is that of the lines written");
  for (const std::string& line : lines) {
    Check(kestrava::platform::LengthInCharacters(line) <= 15, "a stored name has 15 characters");
  }
  kestrava::store::LoadFaves(*tables, kKnown);
  const std::string first = file.Content();
  kestrava::store::LoadFaves(*tables, kKnown);
  Check(file.Content() == first, "a rewritten file comes back byte for byte");
  return 0;
}
