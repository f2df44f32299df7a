// From the words of the command line to a request.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "Request.h"

namespace kestrava::cli {

/// An answer that needs no station: help, or the version.
struct ReadyAnswer {
  std::string text;
};

/// @throws WrongUse
std::variant<Request, ReadyAnswer> ParseArguments(const std::vector<std::string>& arguments);

}  // namespace kestrava::cli
