// Locations.dat: any bytes are loaded or break off with a fault, on a point and on a comma machine, and what a save
// wrote comes back the same.
#include "store/Locations.h"

#include "orbit/Tables.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  kestrava::fuzz::DataFile file("Locations.dat", kestrava::fuzz::TextOf(data + 1, size - 1));
  file.locale.comma = (data[0] & 1) != 0;
  auto tables = std::make_unique<kestrava::orbit::Tables>();
  const bool whole = kestrava::fuzz::Survives([&] { kestrava::store::LoadLocations(*tables); });
  Check(kestrava::fuzz::Survives([&] { kestrava::store::SaveLocations(*tables); }), "what was loaded can be saved");
  if (!whole) return 0;
  for (const auto& location : tables->LocationList) {
    if (location.Name.find(';') != std::string::npos) return 0;  // a line that begins with one is all name
  }
  const std::string first = file.Content();
  Check(kestrava::fuzz::Survives([&] { kestrava::store::LoadLocations(*tables); }), "what was saved can be loaded");
  kestrava::store::SaveLocations(*tables);
  Check(file.Content() == first, "a file in the writer's form comes back byte for byte");
  return 0;
}
