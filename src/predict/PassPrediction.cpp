#include "predict/PassPrediction.h"

#include "orbit/OrbitEngine.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/KeptFile.h"
#include "platform/Messages.h"
#include "platform/Text.h"
#include "predict/GroupSatellites.h"
#include "predict/JobWindows.h"
#include "predict/PassCredit.h"
#include "predict/PassSort.h"
#include "predict/PassWizard.h"

namespace kestrava::predict {

using platform::FaultTrap;
using platform::SerialDate;
using platform::TheMessages;
using platform::ToInt16;

namespace {

constexpr std::string_view kSaveName = "Kestrava.txt";
constexpr std::string_view kPrintedUnchosen = "The printer dialog was cancelled: the list went to the default printer.";
constexpr std::string_view kNoPrinter =
    "No printer was found, so nothing was printed. \"Print to File\" in the printer dialog makes a PDF.";
constexpr std::string_view kNoDefaultPrinter =
    "The printer dialog was cancelled and there is no default printer, so nothing was printed. \"Print to File\" in "
    "the "
    "dialog makes a PDF.";
constexpr std::string_view kSaveTitle = "Save Predicted results to file";

/// A combo that still shows its prompt: the prompts all hold this.
bool IsPrompt(std::string_view text) {
  return platform::Contains(text, "elect");
}

/// Printing ignores every fault, statement by statement.
template <class Statement>
void Ignoring(Statement&& statement) {
  try {
    statement();
  } catch (const platform::Fault&) {
    return;
  }
}

/// Counts work up while it lives.
class Running {
 public:
  explicit Running(int& count) : count_(count) { ++count_; }
  ~Running() { --count_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  int& count_;
};

CalendarDay DayOf(SerialDate date) {
  const platform::DateParts parts = platform::SplitSerial(date);
  return {ToInt16(parts.day), ToInt16(parts.month), ToInt16(parts.year)};
}

SerialDate SerialOf(const CalendarDay& day) {
  return platform::MakeSerial({day.year, day.month, day.day, 0, 0, 0});
}

}  // namespace

void PassPrediction::Load() {
  const FaultTrap trap{"PassPred-FormLoad"};
  trap([&] { view_.ApplySkin(); });
  trap([&] { view_.SetCalendar(DayOf(orbit::NowLocal())); });
  trap([&] { AddGroupNames(sky_.tables, view_.Groupname()); });
  trap([&] {  // one that a run left in its wizard when it was killed
    JobEditor* editor = FindJobEditor();
    if (!editor || !editor->Wizard().HoldsEditedJob()) PutBackEditedJob();
  });
  for (const std::string& job : ListJobs()) view_.ListPresets().Add(job);
  trap([&] {
    for (int i = 1; i <= sky_.tables.FaveCount; ++i) {
      view_.FavouriteName().Add(platform::At(sky_.tables.FaveList, i).Name);
    }
  });
  view_.Groupname().SetText("Select Satellite Group");
  view_.SatelliteName().SetText("Select Satellite");
  view_.FavouriteName().SetText("Select Favourite");
}

void PassPrediction::Unload() {
  open_ = false;
  table_.Clear();
}

void PassPrediction::GroupnameClicked() {
  platform::RunUntrapped("the listing of satellites", [&] {
    const Running running(readsRunning_);
    const std::uint64_t read = ++reads_;
    const std::uint64_t stops = stops_;
    view_.SatelliteName().Clear();
    AddSatellitesOfGroup(sky_.tables, view_.Groupname().Text(), view_.SatelliteName(),
                         [&] { return !open_ || reads_ != read || stops_ != stops; });
  });
}

void PassPrediction::SatelliteNameClicked() {
  view_.FocusCalc();
}

void PassPrediction::CalendarPicked() {
  view_.FocusCalc();
}

void PassPrediction::CalcClicked() {
  const std::string group = view_.Groupname().Text();
  const std::string favourite = view_.FavouriteName().Text();
  if (IsPrompt(group) && IsPrompt(favourite)) {
    TheMessages().Show("You must select either one of the " + std::to_string(sky_.engine.SatelliteCount()) +
                       " Satellites in the database, or one of your favourites");
    return;
  }
  // The satellite of a chosen group counts even where it is still a prompt: it then has no passes.
  const std::string satellite = IsPrompt(group) ? favourite : view_.SatelliteName().Text();
  Calculate(satellite);
}

void PassPrediction::AgainClicked() {
  if (!lastSatellite_.empty()) Calculate(std::string(lastSatellite_));
}

void PassPrediction::Calculate(const std::string& satellite) {
  const CalendarDay day = view_.Calendar();
  const int first = table_.RowCount();
  PassTally tally;
  view_.ClearSorting();
  if (!CalcDay(satellite, day, tally)) return;
  if (!IsPrompt(satellite)) lastSatellite_ = satellite;
  if (first < table_.RowCount()) view_.ShowRow(first);
  view_.ShowStatus(StatusText(tally, {satellite, SerialOf(day)}, table_.RowCount()));
}

/// One calculation and what it leaves in the window. @return false if the window was closed in its yield
bool PassPrediction::CalcDay(std::string_view satellite, const CalendarDay& day, PassTally& tally) {
  tally += CalcResults(sky_, table_, satellite, day.day, day.month, day.year, view_.VisibleOnly());
  view_.RowsChanged();
  platform::YieldOnce();
  if (!open_) return false;
  view_.Groupname().SetText("Select Satellite Group");
  view_.SatelliteName().SetText("Select a Satellite");
  view_.FavouriteName().SetText("Select a Favourite");
  return true;
}

void PassPrediction::StopClicked() {
  ++stops_;
}

void PassPrediction::SortChronClicked() {
  if (table_.RowCount() < 2) return;
  const Running running(sortsRunning_);
  const std::uint64_t stops = stops_;
  view_.ShowSorting(0, table_.RowCount());
  view_.ShowList(false);
  platform::YieldOnce();
  if (!open_) return;
  SortChron(table_,
            {[&](int done, int rows) { view_.ShowSorting(done, rows); }, [&] { return !open_ || stops_ != stops; }});
  if (!open_) return;
  view_.RowsChanged();
  view_.ShowList(true);
}

void PassPrediction::ClearResultsClicked() {
  view_.ClearSorting();
  printed_.Clear();
  table_.Clear();
  view_.RowsChanged();
}

void PassPrediction::SaveResultsClicked() {
  platform::RunUntrapped("the saving of the predictions", [&] { SaveRows(); });
}

void PassPrediction::SaveRows() {
  const auto chosen = view_.ChooseSaveFile(kSaveTitle, kSaveName);
  if (!open_) return;
  // The dialog keeps its first name when it is cancelled, and the text is written all the same. What stands there was
  // not meant to be replaced.
  const std::filesystem::path file = chosen ? *chosen : view_.CurrentFolder() / kSaveName;
  std::optional<std::filesystem::path> kept;
  AssemblePasses(printed_, SaveCredit(CreditFacts(sky_.engine, table_)), table_);
  try {
    if (!chosen) kept = platform::KeepUnderOtherName(file);
    platform::TheFiles().Replace(file, printed_.PlainText() + "\r\n");
  } catch (const platform::Fault& fault) {
    const bool isBack =
        !kept || platform::FaultTrap{"PassPred-SaveResults"}([&] { platform::TheFiles().Rename(*kept, file); });
    TheMessages().Show("The predictions could not be saved as " + file.string() + ": " + fault.what() +
                       ". Nothing was written there, and the list is as it was." +
                       (isBack ? "" : " What stood there before is now " + kept->string() + "."));
    return;
  }
  if (kept) {
    view_.ShowStatus("Saved without a choice of a file. What stood in " + file.filename().string() +
                     " before is kept beside it as " + kept->filename().string() + ".");
  }
  TheMessages().Show("Predictions saved as " + file.string());
}

void PassPrediction::PrintClicked() {
  bool chosen = true;
  Ignoring([&] { chosen = view_.OpenPrinterDialog(); });
  if (!open_) return;
  Ignoring([&] { AssemblePasses(printed_, PrintCredit(CreditFacts(sky_.engine, table_)), table_); });
  Ignoring([&] {
    const bool isPrinted = view_.Print(printed_, kPrintFont);
    if (isPrinted && !chosen) view_.ShowStatus(kPrintedUnchosen);
    if (!isPrinted) view_.ShowStatus(chosen ? kNoPrinter : kNoDefaultPrinter);
  });
}

void PassPrediction::MinClicked() {
  view_.Minimise();
}

void PassPrediction::ExitClicked() {
  view_.EndWindow();
}

}  // namespace kestrava::predict
