#include "station/Announcements.h"

#include "orbit/TextHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Speech.h"

namespace kestrava::station {

void AnnouncePositions(const orbit::Tables& tables, bool upOnly) {
  platform::BeginAnnouncement();
  for (int i = 1; i <= tables.FaveCount; ++i) {
    const orbit::FaveRec& fave = platform::At(tables.FaveList, i);
    if (fave.hasNoPosition) continue;
    if (upOnly && !(fave.El > 0)) continue;
    platform::SayText(orbit::SpokenName(fave.Name) + (upOnly ? " Azimuth " : ", Azimuth ") +
                          platform::FloorText(fave.Az) + " Elevation " + platform::FloorText(fave.El) + ". ",
                      true, platform::SpeechKind::kAnnouncement);
  }
}

}  // namespace kestrava::station
