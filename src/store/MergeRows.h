// Two running copies have changed one list: what comes of it.
#pragma once

#include <string>
#include <string_view>

#include "Rewrite.h"

namespace kestrava::store {

/// By what a row is the same one, however the rest of it was changed.
using RowKey = std::string (*)(std::string_view row);

/// A list changed in two places since it was last the same: what either side added is in, what either took out is out,
/// and a row that one side changed is as that side has it. A row that one changed and the other took out stays; one
/// that both changed is there twice. The order is that of the side that changed it, else of `theirs`.
Lines MergeRows(const Lines& base, const Lines& mine, const Lines& theirs, RowKey key);

/// Cuts a list of both sides to what its table holds. @return the rows that have no room
Lines CutTo(Lines& rows, int most);

/// The fault of a save that had to leave such rows out. @param rows  not none
platform::Fault NoRoomFor(const Lines& rows);

}  // namespace kestrava::store
