// frmSplash: the picture that stands on the screen until the launcher has come up. It is the first window of a run,
// and its activation shows the launcher.
#pragma once

#include "platform/qt/StationWindow.h"

namespace kestrava::shell::ui {

class SplashWindow : public platform::qt::StationWindow {
 public:
  SplashWindow();

 protected:
  void OnActivated() override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void BuildUi();

  QPixmap picture_;
  bool launcherShown_ = false;
};

}  // namespace kestrava::shell::ui
