// The GPS element file names its satellites by block and number, longer than the 15 characters that tell satellites
// apart here. The launcher's every activation calls this to put the number first.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrava::shell {

/// "GPS BIIR-2  (PRN 13)" becomes "GPS PRN 13".
/// @return none if the line has no "(PRN" in it: it is converted already
/// @throws platform::Fault "Invalid procedure call or argument" if the bracket is never closed
std::optional<std::string> GpsNameByPrn(std::string_view line);

/// Rewrites gps-ops.txt in the user's folder, once: a converted file is left alone and a stray gps-ops.new goes. The
/// file keeps its date, which tells the age of its elements. Faults are logged with "MAIN_FIXGPSKEPS".
void MAIN_FIXGPSKEPS();

}  // namespace kestrava::shell
