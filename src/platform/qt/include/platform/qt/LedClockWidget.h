// A clock with glowing seven-segment digits. It runs by itself from the clock door; a window may make it show a time of
// its own instead, as the map does in time warp.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "platform/Controls.h"
#include "platform/EventLoop.h"
#include "platform/Skin.h"

namespace kestrava::platform::qt {

class LedClockWidget : public QWidget, public LedClock {
  Q_OBJECT

 public:
  explicit LedClockWidget(QWidget* parent = nullptr);

  void SetValue(SerialDate time) override;
  void ShowGivenTime(bool given) override;
  void ShowUniversalTime(bool utc) override;
  void SetClockVisible(bool visible) override;
  /// As the window has set it, whether or not the window itself is on the screen.
  bool IsClockVisible() const override { return !isHidden(); }

  bool ShowsGivenTime() const { return given_; }
  bool ShowsUniversalTime() const { return utc_; }
  /// What the digits show: "hh:mm:ss".
  std::string Text() const { return text_; }
  void SetDigitColour(Colour colour);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Refresh();

  SerialDate value_ = 0;
  bool given_ = false;
  bool utc_ = false;
  Colour colour_ = 0x00CFD6;
  std::string text_ = "00:00:00";
  std::unique_ptr<Timer> timer_;
};

}  // namespace kestrava::platform::qt
