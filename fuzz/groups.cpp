// groups.dat: any bytes are loaded or break off with a fault, and what a save wrote comes back the same from the next.
#include "store/Groups.h"

#include "orbit/Tables.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kestrava::fuzz::DataFile file("groups.dat", kestrava::fuzz::TextOf(data, size));
  auto tables = std::make_unique<kestrava::orbit::Tables>();
  if (!kestrava::fuzz::Survives([&] { kestrava::store::LoadGroups(*tables); })) return 0;
  Check(tables->GroupCount >= 0 && tables->GroupCount <= kestrava::orbit::kGroupRows, "the count is one of rows");
  Check(kestrava::fuzz::Survives([&] { kestrava::store::SaveGroups(*tables); }), "what was loaded can be saved");
  const std::string first = file.Content();
  if (!kestrava::fuzz::Survives([&] { kestrava::store::LoadGroups(*tables); })) return 0;
  kestrava::store::SaveGroups(*tables);
  const std::string second = file.Content();
  kestrava::store::LoadGroups(*tables);
  kestrava::store::SaveGroups(*tables);
  Check(file.Content() == second || first != second, "a file in the writer's form comes back byte for byte");
  return 0;
}
