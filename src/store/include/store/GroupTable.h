// Changes of the groups' table while the station runs, and the groups that the element server is known for. Nothing
// here writes groups.dat and no element file is touched. Called by the groups panel.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "orbit/Tables.h"

namespace kestrava::store {

/// What neither a group's name nor its address may hold: it parts the fields of a line of groups.dat.
inline constexpr std::string_view kNotInGroups = ",";

/// Adds a row. @return its number
/// @throws platform::Fault "Subscript out of range" for a 41st group; nothing is touched then
int AddGroup(orbit::Tables& tables, const orbit::GroupRec& group);

/// Takes a row out and moves the ones above it down by one. Its element file stays.
/// @throws platform::Fault "Subscript out of range" for a row that is not in use
void RemoveGroup(orbit::Tables& tables, int row);

/// A group of the element server.
struct ServerGroup {
  std::string_view name;
  std::string_view file;
  bool ended = false;  ///< the server publishes it no longer
};

/// All of them, in the order in which they are offered.
std::span<const ServerGroup> ServerGroups();

/// How a group is offered: its name, and that it is no longer published where that is so.
std::string OfferedText(const ServerGroup& group);

/// The group that an offered text stands for. @return null if it is none of them
const ServerGroup* FindOffered(std::string_view offered);

/// The row of groups.dat for a group of the element server.
orbit::GroupRec GroupOf(const ServerGroup& group);

/// An address that a user typed as groups.dat wants it: trimmed, without its scheme.
std::string WithoutScheme(std::string_view address);

}  // namespace kestrava::store
