// The behaviour of the pass window ("Satellite Pass Predictions"): selection, calculation, sorting, saving, printing
// and jobs. Knows no toolkit: the window is a PassPredictionView that shows what is decided here and hands every event
// on.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "orbit/Satcalc.h"
#include "platform/ChoiceControls.h"
#include "predict/PassCalc.h"
#include "predict/PassJobs.h"
#include "predict/PassTable.h"
#include "predict/PassText.h"

namespace kestrava::predict {

inline constexpr std::string_view kPassWindow = "PassPrediction";  ///< its name in the registry
inline constexpr std::string_view kPassCaption = "Kestrava - Satellite Pass Predictions";

/// A day of the calendar, local.
struct CalendarDay {
  std::int16_t day = 0;
  std::int16_t month = 0;
  std::int16_t year = 0;
};

/// What the behaviour asks of the window and its controls.
class PassPredictionView {
 public:
  virtual ~PassPredictionView() = default;
  virtual void ApplySkin() = 0;
  virtual void Minimise() = 0;
  /// Ends the window through the registry, which calls PassPrediction::Unload.
  virtual void EndWindow() = 0;

  virtual platform::ComboControl& Groupname() = 0;
  virtual platform::ComboControl& SatelliteName() = 0;
  virtual platform::ComboControl& FavouriteName() = 0;
  virtual platform::ListBoxControl& ListPresets() = 0;
  virtual CalendarDay Calendar() const = 0;
  virtual void SetCalendar(const CalendarDay& today) = 0;
  virtual bool VisibleOnly() const = 0;  ///< CHvisOnly is ticked
  virtual void FocusCalc() = 0;

  /// The table has more rows, or others, than were shown last.
  virtual void RowsChanged() = 0;
  virtual void ShowList(bool visible) = 0;               ///< LISTpasses, hidden during a sort
  virtual void ShowSorting(int value, int maximum) = 0;  ///< PROsorting
  virtual void ClearSorting() = 0;                       ///< its bar of an earlier sort
  virtual void ShowRow(int row) = 0;                     ///< brings a row of the table to the top of what is seen
  virtual void ShowWork(int done, int total) = 0;        ///< a job's calculations; total 0: no job runs any more
  virtual void ShowStatus(std::string_view text) = 0;    ///< the line below the list

  /// Opens the save dialog. @return what was chosen; nothing if it was cancelled
  virtual std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title, std::string_view fileName) = 0;
  /// Where a save goes whose dialog was cancelled: the user's documents.
  virtual std::filesystem::path CurrentFolder() const = 0;
  /// Opens the printer dialog. @return false if it was cancelled: the print then goes to the default printer, and
  /// nowhere where there is none
  virtual bool OpenPrinterDialog() = 0;
  /// Prints a document in one job. @param font  its face, or another fixed-pitch one where it is not there
  /// @return false if there is no printer
  virtual bool Print(const PrintedText& document, std::string_view font) = 0;
};

class PassPrediction {
 public:
  /// @param view  outlives this object
  PassPrediction(const orbit::Sky& sky, PassPredictionView& view) : sky_(sky), view_(view) {}

  /// Fills the window: skin, calendar, groups, jobs, favourites.
  void Load();
  /// The window's end: whatever runs ends at its next yield and touches nothing any more; the rows are lost.
  void Unload();
  bool IsOpen() const { return open_; }

  const PassTable& Table() const { return table_; }
  /// A job or a sort runs, or an element file is being read: Stop has something to stop.
  bool IsWorking() const { return jobRunning_ || readsRunning_ > 0 || sortsRunning_ > 0; }

  /// A job runs: another one would be passed over.
  bool JobRuns() const { return jobRunning_; }

  void GroupnameClicked();
  void SatelliteNameClicked();
  void CalendarPicked();
  void CalcClicked();
  /// The last satellite once more, for the day that is chosen now.
  void AgainClicked();
  /// The satellite that Again would take; empty while there is none.
  const std::string& LastSatellite() const { return lastSatellite_; }
  void StopClicked();

  void SortChronClicked();
  void ClearResultsClicked();
  void SaveResultsClicked();
  void PrintClicked();
  void MinClicked();
  void ExitClicked();

  void PresetGoClicked();
  void PresetAddClicked();
  void PresetDeleteClicked();
  void EditJobClicked();
  /// The wizard has saved a job.
  void AddJob(std::string_view name);

 private:
  void Calculate(const std::string& satellite);
  bool CalcDay(std::string_view satellite, const CalendarDay& day, PassTally& tally);
  void RunJob(const std::string& name, const PassJob& job);
  bool RunJobDays(const PassJob& job, PassTally& tally);
  void ShowFirstRow();
  void SaveRows();
  void StartEditor(int row);

  orbit::Sky sky_;
  PassPredictionView& view_;
  PassTable table_;
  PrintedText printed_;
  std::string lastSatellite_;
  std::optional<int> firstRowToShow_;  ///< of what runs, until it is there
  bool open_ = true;
  bool jobRunning_ = false;
  int readsRunning_ = 0;
  int sortsRunning_ = 0;
  std::uint64_t stops_ = 0;  ///< grows with every Stop: work that began before one ends
  std::uint64_t reads_ = 0;  ///< grows with every element file: the reading of an earlier one ends
};

}  // namespace kestrava::predict
