#include "platform/Messages.h"

#include <exception>
#include <set>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Quote.h"
#include "platform/Text.h"

namespace kestrava::platform {

namespace {

/// Faults whose message stands on the screen now, and those that a tick has already told.
std::set<std::string>& Told() {
  static std::set<std::string> told;
  return told;
}

void Tell(const std::string& what, const std::string& fault, Untrapped kind) {
  std::string sentence = what + " could not be done: " + fault + ".";
  sentence.replace(0, 1, ToCapitals(sentence.substr(0, 1)));
  if (!Told().insert(sentence).second) return;
  TheMessages().Show(sentence + "\n\nEverything stays as it was before, and you can go on. If this happens again, " +
                     "please report this message with the file error.log of your data folder.");
  if (kind == Untrapped::kClick) Told().erase(sentence);
}

}  // namespace

bool RunUntrapped(std::string_view what, const std::function<void()>& body, Untrapped kind) {
  const std::string name(what);
  try {
    body();
    return true;
  } catch (const Fault& fault) {
    Tell(name, QuoteOf(fault.what()) + " (fault " + std::to_string(fault.Number()) + ")", kind);
  } catch (const std::exception& failure) {
    Tell(name, QuoteOf(failure.what()), kind);
  }
  return false;
}

void ForgetToldFaults() {
  Told().clear();
}

}  // namespace kestrava::platform
