// What is quoted from a file or a setting in a message: the one place that keeps a damaged line from filling the
// screen.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::platform {

inline constexpr int kMostQuotedCharacters = 200;

/// A text of unknown origin as a message shows it: bytes that are no UTF-8 are read as Latin-1, control characters and
/// marks that turn the direction of writing stand as "\n", "\t" or "\x1B" in hexadecimal, and what goes beyond 200
/// characters is cut, with "..." for the rest. Quotation marks are the caller's.
std::string QuoteOf(std::string_view text);

}  // namespace kestrava::platform
