#include "Findings.h"

namespace kestrava::accessibility {

std::span<const KnownException> KnownExceptions() {
  return {};
}

}  // namespace kestrava::accessibility
