// The satellite groups in groups.dat: name, address of the element file, and whether it is kept by hand. Read once at
// start-up, written whole when the group window closes.
#pragma once

#include "orbit/Tables.h"

namespace kestrava::store {

/// Reads groups.dat up to its first blank line. The last character of a line is taken as `Manual`, whatever it is. Rows
/// behind the last one are cleared up to row 20 only.
/// @throws platform::Fault "File not found"; "Subscript out of range" past row 40, with the count as it was
void LoadGroups(orbit::Tables& tables);

/// Writes the rows that have a name, and between them what other copies have added meanwhile; what they took out stays
/// out. Where the file holds lines behind a blank one, it is kept as groups.dat.bak first and error.log names what was
/// left out. A table that could not be read whole is never written over its file.
/// @throws platform::Fault, also for such a table that was changed since; the old file is then whole
void SaveGroups(const orbit::Tables& tables);

}  // namespace kestrava::store
