// The shell's windows with their real controls in a scripted house, on a screen that nobody sees.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <memory>
#include <string>
#include <vector>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "shell/ui/AboutWindow.h"
#include "shell/ui/LauncherWindow.h"
#include "shell/ui/MenuWindow.h"
#include "shell/ui/SplashWindow.h"
#include "shell/ui/SystemInformationWindow.h"

#include "support/ElementText.h"
#include "support/House.h"

namespace kestrava::shell::ui {

using Strings = std::vector<std::string>;

class FakeShipped : public ShippedFiles {
 public:
  bool Has(const std::string& name) const override { return name == "amateur.txt"; }
  void PutBack(const std::string& name) override { putBack.push_back(name); }
  bool AreElements(const std::string& name) const override { return demonstration && name == "amateur.txt"; }
  Strings putBack;
  bool demonstration = false;
};

/// A window of a later day: remembers its tag.
class TaggedStub : public platform::Window {
 public:
  void SetTag(std::string_view text) override { tag = text; }
  void Show() override { shown = true; }
  void Hide() override { shown = false; }
  bool IsVisible() const override { return shown; }
  std::string tag;
  bool shown = false;
};

class ShellWindows : public testing::House {
 protected:
  ShellWindows() {
    Put("groups.dat", "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\n");
    Put("faves.dat", "");
    Put("Locations.dat", "");
    Put("amateur.txt", testing::ElementText("AO-07", 7530));
    Put("cust2.dat", "Our club\nhttps://club.example/\n");
    PutPicture("cust1.dat");
    files.SetModifiedUtc("/house/amateur.txt", platform::MakeSerial({2024, 5, 29, 12, 0, 0}));
    windows->Register(kSplashName, [] { return std::make_unique<SplashWindow>(); });
    windows->Register("frmLAUNCHER", [this] { return std::make_unique<LauncherWindow>(NewSetup()); });
    windows->Register(kMenuName, [] { return std::make_unique<MenuWindow>(); });
    windows->Register(kAboutName, [] { return std::make_unique<AboutWindow>(); });
    windows->Register(kSystemInformationName, [] {
      return std::make_unique<SystemInformationWindow>(InformationSources{"/config/settings.conf", "/shipped"});
    });
  }
  ~ShellWindows() override {
    platform::qt::ApplyTheme(false);
    orbit::Engine.reset();
  }

  void PutPicture(const std::string& name);
  void RegisterStub(const std::string& name) {
    windows->Register(name, [] { return std::make_unique<TaggedStub>(); });
  }

  /// Lets the toolkit's events and the house's waiting work run.
  void Settle() {
    for (int i = 0; i < 5; ++i) eventLoop.RunEvent([] { QCoreApplication::processEvents(); });
  }
  LauncherWindow& Open() {
    eventLoop.RunEvent([this] { windows->Show("frmLAUNCHER"); });
    Settle();
    return dynamic_cast<LauncherWindow&>(*windows->Find("frmLAUNCHER"));
  }
  template <class Control>
  static Control& In(QWidget& window, QAnyStringView name) {
    auto* control = window.findChild<Control*>(name.toString());
    if (!control) throw std::runtime_error("no control " + name.toString().toStdString());
    return *control;
  }
  static std::string LabelText(QWidget& window, const QString& name) {
    return platform::qt::FromQt(In<QLabel>(window, name).text());
  }
  static QAbstractButton& Button(QWidget& window, int index) {
    return In<QAbstractButton>(window, platform::qt::ArrayName("BUTmenu", index));
  }
  void Click(QAbstractButton& button) {
    eventLoop.RunEvent([&] { button.click(); });
    Settle();
  }
  Strings LoadedNames() {
    Strings names;
    for (const auto& [name, window] : windows->Loaded()) names.push_back(name);
    return names;
  }

  FakeShipped shipped;
  bool firstStart = false;
  int processEnds = 0;

 private:
  LauncherSetup NewSetup() {
    return {"/house",
            "/config/settings.conf",
            [] { return std::make_unique<orbit::OrbitEngine>(); },
            [] { return std::make_unique<platform::SilentSpeech>(); },
            [this] { ++processEnds; },
            &shipped,
            firstStart};
  }
};

}  // namespace kestrava::shell::ui
