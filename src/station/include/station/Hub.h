// What the windows ask of the launcher, the hub of the run, without knowing it: a new place, new settings, a new start.
// The launcher puts itself in when it loads and takes itself out at its end; before and after, the default does
// nothing.
#pragma once

namespace kestrava::station {

class Hub {
 public:
  virtual ~Hub() = default;
  /// The launcher's activation steps (age of the elements, observer, times of the sun, clock) without raising or
  /// activating its window. Nothing while the run ends; a fault there ends the run, as in an activation by the user.
  virtual void RunActivation() {}
  /// Lets the launcher's window show new settings at once (clock, skin, usable buttons), without the activation.
  virtual void Refresh() {}
  /// When the present event is over: ends the run in order and starts it again with the same arguments. An end that is
  /// refused is no new start either.
  virtual void StartAnew() {}
};

/// The hub in use; a do-nothing one where none has been put in.
Hub& TheHub();
/// Puts a hub in, or with null takes it out.
void UseHub(Hub* hub);

}  // namespace kestrava::station
