// Spoken announcements of the favourites' positions.
#pragma once

#include "orbit/Tables.h"

namespace kestrava::station {

/// Speaks all favourites' look angles; with `upOnly` those above the horizon only.
void AnnouncePositions(const orbit::Tables& tables, bool upOnly);

}  // namespace kestrava::station
