// The quick ETA watch: what comes up next. Fills a list with the favourites ordered by their next rise, and is the
// spoken alarm before a pass. Slow, so it runs on slow timers and yields all through its work.
#pragma once

#include <string>

#include "orbit/Satcalc.h"
#include "platform/Controls.h"

namespace kestrava::predict {

/// Fills the list anew. While one run is under way a second call returns at once.
/// @param speak  announce rises that come soon, in the rhythm of the settings SpeechStart and SpeechEvery
void UpdateQuickETA(const orbit::Sky& sky, platform::ListControl& list, bool speak);

/// True from the start to the end of a run.
bool QuickEtaBusy();

/// Clears the busy flag: for the close of a window in the middle of a run.
void ForgetQuickEta();

/// "Less than a minute", "1 minute", "n minutes"; empty below 0.
std::string EtaText(long minutes);

}  // namespace kestrava::predict
