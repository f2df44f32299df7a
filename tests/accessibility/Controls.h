// Which widgets of a window a user can work.
#pragma once

#include <QWidget>
#include <vector>

namespace kestrava::accessibility {

/// The toolkit's own piece of a control: the line of a combo list, the arrows of a calendar, a scroll bar.
bool IsPart(const QWidget& widget);

/// The visible controls of a window that is shown, disabled ones too, without their parts.
std::vector<QWidget*> ControlsOf(const QWidget& window);

/// The part of a widget, in its own pixels, that its parents do not cut off.
QRect SeenPart(const QWidget& widget);

/// Where the seen part of a control stands in its window; what scrolls is brought into view first.
QRect BringIntoView(QWidget& control);

/// The visible children of a kind.
template <class Kind>
std::vector<Kind*> Visible(const QWidget& window) {
  std::vector<Kind*> visible;
  for (Kind* child : window.findChildren<Kind*>())
    if (child->isVisible() && child->window() == &window) visible.push_back(child);
  return visible;
}

}  // namespace kestrava::accessibility
