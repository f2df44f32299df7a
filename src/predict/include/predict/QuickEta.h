// The quick ETA watch: what comes up next. Fills a list with the favourites ordered by their next rise, and is the
// spoken alarm before a pass. Slow, so it runs on slow timers and yields all through its work.
#pragma once

#include <string>

#include "orbit/Satcalc.h"
#include "platform/Controls.h"

namespace kestrava::predict {

/// Fills the list anew: a heading row, then names of exactly 14 characters (padded with blanks), rise and set. While
/// one run is under way a second call returns at once.
/// @param speak  announce rises that come soon, in the rhythm of the settings SpeechStart and SpeechEvery
void UpdateQuickETA(const orbit::Sky& sky, platform::ListControl& list, bool speak);

/// True from the start to the end of a run.
bool QuickEtaBusy();

/// Ends the run under way: after the yield in which it stands it touches nothing any more, neither the list, nor the
/// tables, nor the engine, all of which may be gone by then. A new run may start at once. For the end of the run of the
/// program, and before an engine is released.
void ForgetQuickEta();

/// The same, only if the run under way fills this list: for the close of the window that owns it.
void ForgetQuickEta(const platform::ListControl& list);

/// "Less than a minute", "1 minute", "n minutes"; empty below 0.
std::string EtaText(long minutes);

}  // namespace kestrava::predict
