// The pass window and its wizard without a toolkit: views that remember what they were told, and stand in the registry
// as the real windows do.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/Windows.h"
#include "predict/JobWindows.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

#include "support/RecordingChoices.h"
#include "support/SkyHouse.h"

namespace kestrava::predict {

class PassView : public PassPredictionView {
 public:
  void ApplySkin() override { ++skins; }
  void Minimise() override { ++minimised; }
  void EndWindow() override {
    if (end) end();
  }
  platform::ComboControl& Groupname() override { return group; }
  platform::ComboControl& SatelliteName() override { return satellite; }
  platform::ComboControl& FavouriteName() override { return favourite; }
  platform::ListBoxControl& ListPresets() override { return presets; }
  CalendarDay Calendar() const override { return day; }
  void SetCalendar(const CalendarDay& today) override { day = today; }
  bool VisibleOnly() const override { return visibleOnly; }
  void FocusCalc() override { ++focused; }
  void RowsChanged() override { ++rowsChanged; }
  void ShowList(bool visible) override { listShown.push_back(visible); }
  void ShowSorting(int value, int maximum) override { sorting.emplace_back(value, maximum); }
  void ClearSorting() override { ++sortingCleared; }
  void ShowRow(int row) override { rowsShown.push_back(row); }
  void ShowWork(int done, int total) override { work.emplace_back(done, total); }
  void ShowStatus(std::string_view text) override { status = text; }
  std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title, std::string_view fileName) override {
    saveDialogs.push_back(std::string(title) + "|" + std::string(fileName));
    happened.push_back("save dialog");
    if (inDialog) inDialog();
    return chosen;
  }
  std::filesystem::path CurrentFolder() const override { return "/documents"; }
  bool OpenPrinterDialog() override {
    happened.push_back("printer dialog");
    if (inDialog) inDialog();
    if (printerFault) throw *printerFault;
    return printerChosen;
  }
  bool Print(const PrintedText& document, std::string_view font) override {
    happened.push_back("print");
    printed = document.PlainText();
    printFont = font;
    if (printerFault) throw *printerFault;
    return hasPrinter;
  }

  testing::RecordingCombo group, satellite, favourite;
  testing::RecordingListBox presets;
  CalendarDay day;
  bool visibleOnly = false, printerChosen = true, hasPrinter = true;
  int skins = 0, minimised = 0, focused = 0, rowsChanged = 0, sortingCleared = 0;
  std::vector<int> rowsShown;
  std::vector<bool> listShown;
  std::vector<std::pair<int, int>> sorting, work;
  std::string status, printed, printFont;
  std::vector<std::string> saveDialogs, happened;
  std::optional<std::filesystem::path> chosen;
  std::optional<platform::Fault> printerFault;
  std::function<void()> end, inDialog;
};

class WizardView : public PassWizardView {
 public:
  void PlaceByPassWindow(int offsetTwips) override { offset = offsetTwips; }
  void ApplySkin() override { ++skins; }
  void EndWindow() override {
    if (end) end();
  }
  platform::ComboControl& COMgroup() override { return group; }
  platform::ComboControl& COMsatname() override { return satellite; }
  platform::ListBoxControl& SatList() override { return list; }
  std::string Tname() const override { return name; }
  void SetTname(std::string_view text) override { name = text; }
  std::string Tnumofdays() const override { return days; }
  void SetTnumofdays(std::string_view text) override { days = text; }
  bool CHsave() const override { return save; }
  void SetCHsave(bool ticked) override { save = ticked; }
  bool CHprint() const override { return print; }
  void SetCHprint(bool ticked) override { print = ticked; }
  void ShowWarning(std::string_view text) override { warning = text; }

  testing::RecordingCombo group, satellite;
  testing::RecordingListBox list;
  std::string name, days, warning;
  bool save = false, print = false;
  int offset = 0, skins = 0;
  std::function<void()> end;
};

/// What the registry holds of either window.
class TestWindow : public platform::Window {
 public:
  void Show() override { shown = true; }
  void Hide() override { shown = false; }
  bool IsVisible() const override { return shown; }
  bool shown = false;
};

class TestPassWindow : public TestWindow, public JobListing {
 public:
  TestPassWindow(const orbit::Sky& sky, PassView& view) : passes(sky, view) {
    view.end = [this] { platform::TheWindows().Unload(*this); };
    passes.Load();
  }
  void OnUnload() override { passes.Unload(); }
  void AddJob(std::string_view name) override { passes.AddJob(name); }
  PassPrediction passes;
};

class TestWizardWindow : public TestWindow, public JobEditor {
 public:
  TestWizardWindow(const orbit::Tables& tables, WizardView& view) : wizard(tables, view) {
    view.end = [this] { platform::TheWindows().Unload(*this); };
    wizard.Load();
  }
  void OnUnload() override { wizard.Unload(); }
  PassWizard& Wizard() override { return wizard; }
  PassWizard wizard;
};

class JobFixture : public testing::SkyHouse {
 protected:
  JobFixture() {
    tables.GroupCount = 2;
    tables.GroupList[1] = {"Space stations", "celestrak.org/NORAD/elements/stations.txt", "0"};
    tables.GroupList[2] = {"Weather", "weather.txt", "1"};
    AddFavourite("NOAA 19", -1);
    AddFavourite("OSCAR 7 (AO-7)", -1);
    files.MakeFolder("/documents");
    windows->Register(kPassWindow, [this] { return std::make_unique<TestPassWindow>(sky, view); });
    windows->Register(kWizardWindow, [this] {
      wizardView = {};
      return std::make_unique<TestWizardWindow>(tables, wizardView);
    });
  }
  PassPrediction& Open() {
    windows->Show(kPassWindow);
    return Passes();
  }
  PassPrediction& Passes() { return dynamic_cast<TestPassWindow&>(*windows->Find(kPassWindow)).passes; }
  PassWizard& Wizard() { return FindJobEditor()->Wizard(); }
  bool IsOpen(std::string_view name) { return windows->Find(name) != nullptr; }
  void Select(const std::string& job) {
    for (int i = 0; i < view.presets.Count(); ++i) {
      if (view.presets.Row(i) == job) view.presets.selected = i;
    }
  }

  PassView view;
  WizardView wizardView;
};

}  // namespace kestrava::predict
