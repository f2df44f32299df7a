// The observing locations in Locations.dat. A line holds the map flag glued in front of the name, then longitude,
// latitude (in this order) and height. Read at start-up and when the locations window opens, written on its changes.
#pragma once

#include "orbit/Tables.h"
#include "platform/Fault.h"

namespace kestrava::store {

/// A save that the user did not want when he was told what it would leave out.
class LeftAsItIs : public platform::Fault {
 public:
  LeftAsItIs() : Fault(75, "Locations.dat was left as it is") {}
};

/// Reads Locations.dat up to its first blank line. A file written on a machine with the other decimal sign is read too.
/// Rows behind the last one are cleared up to row 99 only.
/// @throws platform::Fault "File not found", "Type mismatch" for a number that is none, "Overflow" for a height beyond
/// 16
///   bits, "Subscript out of range" past row 100; the rows read so far stay
void LoadLocations(orbit::Tables& tables);

/// Writes rows 1 to 100 up to the first without a name, and between them what other copies have added meanwhile; what
/// they took out stays out. Where the file holds lines that the reader does not take, a table that was not changed is
/// not written, and before one that was is written the user is asked; the file is then kept as Locations.dat.bak and
/// error.log names what was left out.
/// @throws LeftAsItIs if he says No; platform::Fault; the old file is then whole
void SaveLocations(const orbit::Tables& tables);

}  // namespace kestrava::store
