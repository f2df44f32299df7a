// What was asked for on the command line, and the two ways in which it cannot be answered.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Places.h"

namespace kestrava::cli {

enum class Word { kPasses, kNext, kWhere, kList, kJob, kJobs };
enum class Format { kText, kCsv, kJson, kICal };

struct Request {
  Word word = Word::kPasses;
  std::optional<std::string> dataFolder;
  std::vector<std::string> names;  ///< satellites, or the one job
  std::string listed;              ///< of "list": groups, satellites or favourites
  Format format = Format::kText;
  std::optional<Place> at;
  int days = 1;
  std::string moment = "now";  ///< --from or --at-time as written
  std::optional<double> minElevationDeg;
  bool visibleOnly = false;
};

/// Options or values that make no sense: exit code 2.
class WrongUse : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// No pass, no rise, a name that nobody has: exit code 1.
class NotFound : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace kestrava::cli
