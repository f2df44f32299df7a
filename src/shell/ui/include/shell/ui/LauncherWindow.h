// frmLAUNCHER: the hub of the station, a narrow, tall window that is opened first and stays open for the whole run.
#pragma once

#include <map>
#include <memory>

#include "platform/EventLoop.h"
#include "platform/qt/StationWindow.h"
#include "shell/Launcher.h"
#include "station/Hub.h"

class QLabel;
class QVBoxLayout;

namespace kestrava::platform::qt {
class LedClockWidget;
}

namespace kestrava::shell::ui {

class PictureLink;

class LauncherWindow : public platform::qt::StationWindow, private LauncherView, private station::Hub {
 public:
  explicit LauncherWindow(LauncherSetup setup);
  ~LauncherWindow() override;

  /// The first call loads the window; a load that unloads it shows nothing.
  void Show() override;
  void OnUnload() override;

 protected:
  /// An untrapped fault here is the end of the run.
  void OnActivated() override;
  bool MayClose() override;
  /// Its end is the end of the run: no slip of a finger is to bring that about.
  bool ClosesByKey() const override { return false; }

 private:
  void BuildUi();
  void BuildHead(QVBoxLayout& column);
  void BuildButtons(QVBoxLayout& column);
  void BuildFoot(QVBoxLayout& column);
  QLabel* MakeLabel(LauncherLabel which, int lines);
  QLabel* MakeDemonstrationLine();
  void PlaceFirstMap();
  void ConnectSignals();
  void ShowLook();
  void FitPanel();
  void ClickMenuButton(int index);
  void PopUp(std::string_view menu);
  void EndByFault(const platform::Fault& fault);
  void EndToStartAnew();
  void LeaveHub();

  void RunActivation() override;
  void Refresh() override;
  void StartAnew() override;

  void SetCaption(std::string_view text) override;
  void SetLabel(LauncherLabel label, std::string_view text) override;
  platform::LedClock& Clock() override;
  void ShowPicture(std::string_view file) override;
  void SetPictureHint(std::string_view text) override;
  void ShowDemonstration(bool shown) override;
  void UnloadSelf() override;

  ShippedFiles* shipped_;
  bool firstStart_;
  std::map<LauncherLabel, QLabel*> labels_;
  platform::qt::LedClockWidget* clock_ = nullptr;
  PictureLink* picture_ = nullptr;
  QLabel* demonstration_ = nullptr;
  Launcher launcher_;
  std::unique_ptr<platform::Timer> timer1_;
  bool loaded_ = false;   ///< the load has begun
  bool started_ = false;  ///< an activation has come to its end
  bool closing_ = false;
  bool startsAnew_ = false;  ///< the end that is under way is to be followed by a new start
};

/// Object names and title of the three windows that belong to it.
inline constexpr std::string_view kSplashName = "frmSplash";
inline constexpr std::string_view kMenuName = "frmMenu";
inline constexpr std::string_view kAboutName = "About";
inline constexpr std::string_view kSystemInformationName = "SystemInformation";

}  // namespace kestrava::shell::ui
