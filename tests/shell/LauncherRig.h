// A launcher without a toolkit in a scripted house: its view remembers what it was told.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "shell/Launcher.h"

#include "support/House.h"

namespace kestrava::shell {

class FakeLedClock : public platform::LedClock {
 public:
  void SetValue(platform::SerialDate) override {}
  void ShowGivenTime(bool) override {}
  void ShowUniversalTime(bool universal) override { utc = universal; }
  void SetClockVisible(bool shown) override { visible = shown; }
  bool IsClockVisible() const override { return visible; }

  bool visible = true;
  bool utc = true;
};

class FakeLauncherView : public LauncherView {
 public:
  void SetCaption(std::string_view text) override { caption = text; }
  void SetLabel(LauncherLabel label, std::string_view text) override { labels[label] = text; }
  platform::LedClock& Clock() override { return clock; }
  void ShowPicture(std::string_view file) override {
    if (!platform::FileExists(file)) throw platform::Fault::FileNotFound();
    picture = file;
  }
  void SetPictureHint(std::string_view text) override { hint = text; }
  void ShowDemonstration(bool shown) override { demonstration = shown; }
  void UnloadSelf() override { ++unloads; }

  FakeLedClock clock;
  std::string caption;
  std::map<LauncherLabel, std::string> labels;
  std::string picture;
  std::string hint;
  bool demonstration = false;
  int unloads = 0;
};

/// What came with the program: the elements of one file, or a folder that cannot be read.
class FakeShipped : public ShippedFiles {
 public:
  bool Has(const std::string&) const override { return false; }
  void PutBack(const std::string&) override {}
  bool AreElements(const std::string& name) const override {
    if (broken) throw platform::Fault::DeviceError();
    return name == elements;
  }
  std::string elements = "amateur.txt";
  bool broken = false;
};

/// One set of the space station; checksums are right.
inline constexpr std::string_view kOneSet =
    "ISS (ZARYA)\n"
    "1 25544U 98067A   24153.50000000  .00016717  00000-0  10270-3 0  9007\n"
    "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.50000000 10001\n";

class LauncherRig : public ::testing::Test, public testing::ScriptedHouse {
 protected:
  LauncherRig() {
    Put("groups.dat", "Amateur, celestrak.org/NORAD/elements/amateur.txt ,0\n");
    Put("faves.dat", "ISS (ZARYA)\n");
    Put("Locations.dat", "1Home;0.5;51.5;20\n");
    Put("amateur.txt", kOneSet);
    Put("cust1.dat", "a picture");
    Put("cust2.dat", " Our club \n https://club.example/ \n");
  }
  ~LauncherRig() override { orbit::Engine.reset(); }

  LauncherSetup NewSetup() {
    LauncherSetup setup;
    setup.dataFolder = "/house";
    setup.settingsFile = "/config/settings.conf";
    setup.makeEngine = [this] {
      auto engine = std::make_unique<orbit::OrbitEngine>();
      engines.push_back(engine.get());
      return engine;
    };
    setup.makeSpeech = [this] {
      auto voice = std::make_unique<testing::RecordingSpeech>();
      made = voice.get();
      return voice;
    };
    setup.endProcess = [this] { ++processEnds; };
    return setup;
  }

  std::string Label(LauncherLabel label) { return view.labels[label]; }

  FakeLauncherView view;
  orbit::Tables tables;
  std::vector<orbit::OrbitEngine*> engines;  ///< the window's own, then the global one
  testing::RecordingSpeech* made = nullptr;
  int processEnds = 0;
};

}  // namespace kestrava::shell
