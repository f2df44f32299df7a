// Favourites that the engine has no elements of at present, in a small file of our own beside faves.dat, which cannot
// hold them: each with its place in the list. They go back by themselves when the engine knows them again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::store {

inline constexpr std::string_view kWaitingFile = "faves.waiting";

struct WaitingFavourite {
  std::string name;
  int place = 1;      ///< in the list with all that wait, counted from 1
  bool told = false;  ///< the user has read of it
};
using WaitingList = std::vector<WaitingFavourite>;

/// In the order of their places; none without the file. Lines that are none of ours are passed over.
/// @throws platform::Fault
WaitingList ReadWaiting();

/// Writes the file where it differs, and removes it for an empty list. @throws platform::Fault
void WriteWaiting(const WaitingList& waiting);

/// The user has read of all that wait now. @throws platform::Fault
void MarkWaitingTold();

}  // namespace kestrava::store
