// The accessibility bus of a desktop as a screen reader sees it: what programs there are, and what they show.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace kestrava::screen_reader {

/// Something that is shown, by its address on the bus.
struct Shown {
  QString service;
  QString path;
};

/// Generations below the desktop, and below a window: a window with a long list is not searched for another window.
inline constexpr int kWindows = 2;
inline constexpr int kAnything = 12;

/// What is looked for: its role in words ("frame", "push button") and its name.
struct Wanted {
  QString role;
  QString name;
};

class AccessibleBus {
 public:
  /// Switches assistive technology on for the session, and joins its bus.
  AccessibleBus();

  /// Everything that all programs show.
  Shown Desktop() const;
  std::vector<Shown> ChildrenOf(const Shown& shown) const;
  QString NameOf(const Shown& shown) const;
  QString RoleOf(const Shown& shown) const;
  /// Does what a click would. It is not waited for: what it opens may stand until it is answered.
  void Press(const Shown& shown) const;

  /// The first one so many generations below, itself included.
  std::optional<Shown> Find(const Shown& below, const Wanted& wanted, int generations) const;
  /// Everything below as a page of text: a line each, role and name.
  QString Page(const Shown& below, int indent = 0) const;

 private:
  QDBusConnection bus_;
};

}  // namespace kestrava::screen_reader
