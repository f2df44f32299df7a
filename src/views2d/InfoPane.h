// The lines of the info pane that the calculations fill. A line's text is rebuilt in place and only when it differs, so
// that a tick on which nothing changed costs neither memory nor a repaint of a label.
#pragma once

#include <initializer_list>
#include <string_view>

#include "orbit/Satcalc.h"
#include "views2d/MapState.h"

namespace kestrava::views2d {

/// Sets a line to the joined parts and tells the window if that is a new text.
/// @throws platform::Fault "Subscript out of range" for a line that there is not
void SetRemoteStat(MapState& map, MapHost& host, int index, std::initializer_list<std::string_view> parts);

/// The lines of the selected satellite, from the result block as it stands.
void FillInfoPane(const orbit::Tables& tables, std::string_view name, MapState& map, MapHost& host);

/// The same lines for a satellite of which nothing is known: its name, and dashes.
void ShowNoPosition(std::string_view name, MapState& map, MapHost& host);

/// The line with the moment as day of the year and fraction, Universal Time.
void ShowNoradTime(MapState& map, MapHost& host);

/// True if distances are shown in miles: any value but "0" asks for them.
bool UsesMiles();

/// The moment that a map shows: its warp clock if that runs, else the present local date and time.
platform::DateParts ShownMoment(const WarpClock& warp);

}  // namespace kestrava::views2d
