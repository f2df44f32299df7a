// The message box door.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kestrava::platform {

inline constexpr std::string_view kProgramTitle = "Kestrava";

/// The sign beside a message.
enum class MessageIcon { kInformation, kExclamation };

/// What a user wants of what he has typed and not stored when he closes its window.
enum class Unstored { kSave, kDiscard, kStay };

class Messages {
 public:
  virtual ~Messages() = default;
  /// A message with OK. Returns when it has been read.
  virtual void Show(std::string_view text, std::string_view title = kProgramTitle,
                    MessageIcon icon = MessageIcon::kInformation) = 0;
  /// A question with Yes and No. @return true for Yes
  virtual bool AskYesNo(std::string_view text, std::string_view title = kProgramTitle) = 0;
  /// A question with Save, Discard and Stay. Where nobody can be asked: to stay, which loses nothing.
  virtual Unstored AskUnstored(std::string_view, std::string_view = kProgramTitle) { return Unstored::kStay; }
};

/// What failed: a click tells of its fault each time it is made, a tick that fails again and again tells each fault
/// once in the run.
enum class Untrapped { kClick, kTick };

/// Runs the body of a click or tick that has no trap of its own: an untrapped fault shows one message that names the
/// fault, and the window stays as it was. While that message stands no second one of its kind is shown.
/// @param what  what was being done, as the message begins: "the listing of groups"; its first letter is made a capital
/// @return false if it failed
bool RunUntrapped(std::string_view what, const std::function<void()>& body, Untrapped kind = Untrapped::kClick);

/// Ticks tell their faults anew. For tests, which share one process.
void ForgetToldFaults();

}  // namespace kestrava::platform
