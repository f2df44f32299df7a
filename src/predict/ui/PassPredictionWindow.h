// The pass window's looks: builds the controls, hands every event to PassPrediction and shows what that decides.
#pragma once

#include <memory>

#include "platform/qt/StationWindow.h"
#include "predict/JobWindows.h"
#include "predict/PassPrediction.h"

#include "PassSections.h"

namespace kestrava::predict::ui {

class PassPredictionWindow : public platform::qt::StationWindow, public PassPredictionView, public JobListing {
 public:
  explicit PassPredictionWindow(const orbit::Sky& sky);
  ~PassPredictionWindow() override;

  void OnUnload() override;
  void AddJob(std::string_view name) override { behaviour_->AddJob(name); }

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Deed = void (PassPrediction::*)();

  void BuildUi();
  void BuildFoot(QVBoxLayout& column);
  void ConnectSignals();
  void ConnectPresets();
  /// A click runs a deed of the behaviour. @param what  as a message about an untrapped fault begins
  void OnClick(QAbstractButton* button, const char* what, Deed deed);
  void Run(const char* what, Deed deed);
  void UpdateJobButtons();
  void ConnectChoices();
  void UpdateHints();
  bool IsTooSoon();

  // PassPredictionView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  void Minimise() override { showMinimized(); }
  void EndWindow() override { Unload(); }
  platform::ComboControl& Groupname() override { return *instant_->groupname; }
  platform::ComboControl& SatelliteName() override { return *instant_->satelliteName; }
  platform::ComboControl& FavouriteName() override { return *instant_->favouriteName; }
  platform::ListBoxControl& ListPresets() override { return *presets_->presets; }
  CalendarDay Calendar() const override;
  void SetCalendar(const CalendarDay& today) override;
  bool VisibleOnly() const override { return instant_->visOnly->isChecked(); }
  void FocusCalc() override { instant_->calc->setFocus(); }
  void RowsChanged() override;
  void ShowList(bool visible) override { results_->passes->setVisible(visible); }
  void ShowSorting(int value, int maximum) override;
  void ClearSorting() override { results_->sorting->reset(); }
  void ShowRow(int row) override { results_->passes->ShowAtTop(row); }
  void ShowWork(int done, int total) override;
  void ShowStatus(std::string_view text) override;
  std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title, std::string_view fileName) override;
  std::filesystem::path CurrentFolder() const override;
  bool OpenPrinterDialog() override;
  bool Print(const PrintedText& document, std::string_view font) override;

  std::unique_ptr<PassPrediction> behaviour_;
  InstantSection* instant_ = nullptr;
  PresetSection* presets_ = nullptr;
  ResultSection* results_ = nullptr;
  platform::qt::SkinButton* min_ = nullptr;
  platform::qt::SkinButton* exit_ = nullptr;
  bool workShown_ = false;        ///< a job runs
  bool focusWaitsForGo_ = false;  ///< it stood on Go when a job began
  double lastShownMs_ = -1;       ///< when the rows of a job were last shown
};

}  // namespace kestrava::predict::ui
