// Passes as a calendar that calendar programs import (iCalendar, RFC 5545).
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "predict/PassCalc.h"

#include "Records.h"

namespace kestrava::cli {

/// A pass with the identity of its event.
struct PassEvent {
  predict::PassFacts pass;
  std::string uid;
};

/// The identity of a satellite's pass over a place, from catalogue number, orbit number and the place to a hundredth of
/// a degree, so that an import after an update of the elements replaces the event, and one for another place does not.
/// @param ordinal  1 for the first pass of that orbit, which is nearly always the only
std::string UidOf(int catalogueNumber, int revolution, int ordinal, const Place& place);

/// Writes nothing without events: a calendar must hold one.
void WriteCalendar(std::ostream& out, const Place& place, const std::vector<PassEvent>& events);

}  // namespace kestrava::cli
