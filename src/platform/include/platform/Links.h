// Links that come from the user's own files: the one of his picture, those of the pages in his folder. A file may have
// come from anywhere, so not all that the desktop would start is opened.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrava::platform {

/// What a link stands for: an address that begins with http:, https: or mailto:, one without any scheme
/// ("www.example.org"), which is taken as https:, or a file of the user's folder, whose path is given whole.
/// @return none for anything else: another scheme, a file elsewhere, a name that means nothing
std::optional<std::string> TargetOfLink(std::string_view link);

/// Opens a link with the desktop's handler. Where it may not or cannot be opened, one message says so.
void OpenLink(std::string_view link);

}  // namespace kestrava::platform
