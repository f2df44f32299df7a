// satellite.dat, and the list of names in an element file: any bytes end, whatever is asked for.
#include "platform/Text.h"
#include "store/ElementFiles.h"
#include "store/SatelliteData.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;

namespace {

class SilentLoop : public kestrava::platform::EventLoop {
 public:
  void ProcessEvents() override {}
  std::unique_ptr<kestrava::platform::Timer> MakeTimer(int, std::function<void()>) override { return {}; }
  void Later(std::function<void()>) override {}
  void Quit(int) override {}
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = kestrava::fuzz::TextOf(data, size);
  kestrava::fuzz::DataFile file("satellite.dat", bytes);
  SilentLoop loop;
  kestrava::platform::TheDoors().eventLoop = &loop;
  for (const auto* name : {"ISS (ZARYA)", "AO-7", "", "METEOR-M 2"}) {
    const std::string text = kestrava::store::SatelliteDataFunc(name);
    const bool told = kestrava::platform::BeginsWith(text, std::string("Data for ") + name);
    Check(text.empty() || told, "a description begins with the satellite's name");
  }
  kestrava::store::FindFirstKepLine("satellite.dat");
  for (const std::string& name : kestrava::store::ListSatellites("satellite.dat", "Fuzz")) {
    Check(kestrava::platform::LengthInCharacters(name) <= 15, "a listed name has 15 characters");
  }
  return 0;
}
