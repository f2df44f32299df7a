// The reader of element files and the model behind it: any bytes end, what is accepted is a set of sane numbers, and
// every moment of it gives a finite state or an error code.
#include <cmath>

#include "orbit/ElementReader.h"
#include "orbit/Sgp4.h"
#include "platform/Text.h"

#include "Fuzz.h"

namespace orbit = kestrava::orbit;
using kestrava::fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const orbit::ReaderRules rules{(data[0] & 1) != 0, (data[0] & 2) != 0};
  const orbit::ElementFile file = orbit::ReadElementSets(kestrava::fuzz::TextOf(data + 1, size - 1), rules);
  for (const orbit::ElementSet& set : file.sets) {
    Check(set.eccentricity >= 0 && set.eccentricity < 1, "an accepted eccentricity is below 1");
    Check(set.meanMotionRevPerDay > 0, "an accepted mean motion is above 0");
    Check(set.catalogueNumber >= 0 && set.catalogueNumber < 340000, "a catalogue number has five places");
    Check(set.name.find_first_of(",\"") == std::string::npos, "a name holds neither comma nor quote");
    Check(kestrava::platform::LengthInCharacters(set.name) <= 15, "a name has 15 characters");
    const orbit::Sgp4 model(set);
    for (const double minutes : {0.0, -1440.0, 1440.0, 100000.0}) {
      const orbit::Sgp4State state = model.Propagate(minutes);
      if (state.error != orbit::ModelError::kNone) continue;
      Check(std::isfinite(orbit::Length(state.positionKm)), "a state without an error is a position");
      model.RevolutionNumber(minutes, state);
    }
  }
  return 0;
}
