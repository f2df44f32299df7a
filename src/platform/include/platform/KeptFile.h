// Keeping what stands under a name that is about to be written. Called where a default name is written unasked: what
// the user had there goes on under a name of its own.
#pragma once

#include <filesystem>
#include <optional>

namespace kestrava::platform {

/// Renames a file to the first free one of "NAME (1).txt", "NAME (2).txt" and so on, beside it.
/// @return where it stands now; none if there was no such file. @throws Fault  it could not be renamed
std::optional<std::filesystem::path> KeepUnderOtherName(const std::filesystem::path& file);

}  // namespace kestrava::platform
