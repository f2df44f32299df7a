// A map window with its real controls over the engine, with the data that a new user gets, in a scripted house. The
// station stands at Greenwich, the clock at 18:20 UTC of 15 November 2026, a day after the elements' epochs.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <stdexcept>
#include <string>

#include "orbit/Tables.h"
#include "views2d/ui/WorldView.h"

#include "support/House.h"

class QAction;
class QImage;

namespace kestrava::views2d::ui {

class MapFixture : public testing::House {
 protected:
  MapFixture();
  ~MapFixture() override;

  /// Shows the single map, or a further one, through the registry, activated; no tick has run yet.
  QWidget& Open(std::string_view mapMode = "worldnormal");
  QWidget& OpenAnother(std::string_view mapMode);
  /// The toolkit's own events: layout, repaints, queued calls.
  static void HandleEvents();
  /// Simulated time: timers tick and what they changed is drawn.
  void Run(double seconds);
  void Resize(QWidget& map, int width, int height);

  template <class Control>
  static Control& Child(QWidget& map, QAnyStringView name) {
    auto* control = map.findChild<Control*>(name.toString());
    if (!control) throw std::runtime_error("no control " + name.toString().toStdString());
    return *control;
  }
  static QAction& Entry(QWidget& map, QAnyStringView name) { return Child<QAction>(map, name); }
  static QString Text(QWidget& map, int remoteStat);
  /// A press and a release of the left button in the middle of a control.
  void Click(QWidget& control);
  void ClickAt(QWidget& control, QPoint at, Qt::MouseButton button = Qt::LeftButton);
  /// A key press and release as the window system tells it: shortcuts are looked for first.
  void PressKey(QWidget& map, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void CloseByUser(QWidget& map);
  /// A point on the map where a favourite stands.
  static QPoint PlaceOf(QWidget& map, int favourite, const char* mapMode = "worldnormal");

  orbit::Tables& tables = orbit::TheTables();
};

}  // namespace kestrava::views2d::ui
