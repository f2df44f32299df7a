#include "platform/Messages.h"

#include <exception>
#include <set>

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::platform {

namespace {

/// Faults whose message stands on the screen now, and those that a tick has already told.
std::set<std::string>& Told() {
  static std::set<std::string> told;
  return told;
}

void Tell(const std::string& what, const std::string& fault, Untrapped kind) {
  const auto [entry, isNew] = Told().insert(what);
  if (!isNew) return;
  TheMessages().Show(what + " could not be done: " + fault +
                     ".\n\nEverything stays as it was before. You can go on working; if this happens again, the file "
                     "error.log in your data folder and this message tell what to report.");
  if (kind == Untrapped::kClick) Told().erase(what);
}

}  // namespace

bool RunUntrapped(std::string_view what, const std::function<void()>& body, Untrapped kind) {
  const std::string name(what);
  try {
    body();
    if (kind == Untrapped::kTick) Told().erase(name);
    return true;
  } catch (const Fault& fault) {
    Tell(name, std::string(fault.what()) + " (fault " + std::to_string(fault.Number()) + ")", kind);
  } catch (const std::exception& failure) {
    Tell(name, failure.what(), kind);
  }
  return false;
}

void ForgetToldFaults() {
  Told().clear();
}

}  // namespace kestrava::platform
