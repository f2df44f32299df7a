// The jobs of the pass window: listed in ListPresets, run, edited and deleted.
#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Quote.h"
#include "predict/JobWindows.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

namespace kestrava::predict {

using platform::FaultTrap;
using platform::SerialDate;
using platform::TheMessages;
using platform::ToInt16;

namespace {

constexpr FaultTrap kTrap{"PassPred-PresetGo"};

/// True while a job runs, however it ends.
class JobFlag {
 public:
  explicit JobFlag(bool& flag) : flag_(flag) { flag_ = true; }
  ~JobFlag() { flag_ = false; }
  JobFlag(const JobFlag&) = delete;
  JobFlag& operator=(const JobFlag&) = delete;

 private:
  bool& flag_;
};

std::string Quoted(const std::string& job) {
  return "The job '" + platform::QuoteOf(job) + "'";
}

/// Takes a job out of the file, or says why that cannot be.
bool TakeOutOfFile(const std::string& job) {
  const std::string file(kJobFile);
  try {
    if (RemoveJob(job)) return true;
    TheMessages().Show(Quoted(job) + " could not be deleted: no line of " + file +
                       " is exactly its name. The file was not changed.");
  } catch (const platform::Fault& fault) {
    TheMessages().Show(Quoted(job) + " could not be deleted from " + file + ": " + fault.what() +
                       ". The file was not changed.");
  }
  return false;
}

}  // namespace

void PassPrediction::PresetGoClicked() {
  if (jobRunning_) return;  // Stop ends it; a second one beside it would only mix their rows
  const int row = view_.ListPresets().Selected();
  if (row < 0) {
    TheMessages().Show("You must select a preset first");
    return;
  }
  const std::string name = view_.ListPresets().Row(row);
  const auto job = ReadJob(name);
  if (!job) {
    TheMessages().Show("There was a problem finding that Job");
    return;
  }
  RunJob(name, *job);
}

void PassPrediction::RunJob(const std::string& name, const PassJob& job) {
  const CalendarDay start = view_.Calendar();
  PassTally tally;
  bool whole = false;
  view_.ClearSorting();
  firstRowToShow_ = table_.RowCount();
  {
    const JobFlag running(jobRunning_);
    whole = RunJobDays(job, tally);
  }
  if (!open_) return;
  view_.ShowWork(0, 0);
  const PassSubject subject{"the job '" + name + "'",
                            platform::MakeSerial({start.year, start.month, start.day, 0, 0, 0}), job.days};
  std::string status = StatusText(tally, subject, table_.RowCount());
  if (const std::string beyond = BeyondText(job); !beyond.empty()) status += " Mind that " + beyond + ".";
  view_.ShowStatus(whole ? status : "Stopped. " + status);
  if (!whole) return;
  if (job.save) SaveResultsClicked();
  if (job.print && open_) PrintClicked();
}

/// @return false if it was stopped, or the window closed
bool PassPrediction::RunJobDays(const PassJob& job, PassTally& tally) {
  const std::uint64_t stops = stops_;
  const CalendarDay start = view_.Calendar();
  const int total = job.days > 0 ? job.days * job.satelliteCount : 0;
  SerialDate date = 0;
  kTrap([&] { date = platform::MakeSerial({start.year, start.month, start.day, 0, 0, 0}); });
  int done = 0;
  for (int counter = 0; counter < job.days; ++counter, date += 1) {
    for (int i = 1; i <= job.satelliteCount; ++i) {
      bool goOn = true;
      kTrap([&] {  // a satellite beyond the table's bound is logged and passed over
        const std::string& satellite = platform::At(job.satellites, i);
        const platform::DateParts day = platform::SplitSerial(date);
        view_.ShowWork(done, total);
        goOn = CalcDay(satellite, {ToInt16(day.day), ToInt16(day.month), ToInt16(day.year)}, tally);
        if (goOn) ShowFirstRow();
      });
      ++done;
      if (!goOn || !open_ || stops_ != stops) return false;
    }
  }
  return true;
}

/// Once, so that the user may scroll while the job goes on. A list that was cleared meanwhile shows what it has.
void PassPrediction::ShowFirstRow() {
  if (!firstRowToShow_ || *firstRowToShow_ >= table_.RowCount()) return;
  view_.ShowRow(*firstRowToShow_);
  firstRowToShow_.reset();
}

void PassPrediction::PresetAddClicked() {
  platform::RunUntrapped("the opening of the job wizard", [] { platform::TheWindows().Show(kWizardWindow); });
}

void PassPrediction::PresetDeleteClicked() {
  const int row = view_.ListPresets().Selected();
  if (row < 0) {
    TheMessages().Show("you must select a preset to delete");
    return;
  }
  if (TakeOutOfFile(view_.ListPresets().Row(row))) view_.ListPresets().Remove(row);
}

void PassPrediction::EditJobClicked() {
  const int row = view_.ListPresets().Selected();
  if (row < 0) {
    TheMessages().Show("you must select a preset to edit");
    return;
  }
  try {
    StartEditor(row);
  } catch (const platform::Fault& fault) {
    TheMessages().Show("There was a problem starting the editor. The Error was '" + std::string(fault.what()) + "'");
  }
}

void PassPrediction::StartEditor(int row) {
  const std::string name = view_.ListPresets().Row(row);
  platform::TheWindows().Show(kWizardWindow);
  JobEditor* editor = FindJobEditor();
  if (!editor) throw platform::Fault::ObjectNotSet();
  if (!platform::FileExists(platform::InAppDir(kJobFile))) {
    TheMessages().Show("Can't file PASS.DAT in your Kestrava folder");
    return;
  }
  const auto job = ReadJobRecord(name);
  if (!job) {
    TheMessages().Show("There is a possible problem with your PASS.DAT file");
    return;
  }
  editor->Wizard().PutBack();  // one that stood there before: the form bears this one's name from here on
  editor->Wizard().Edit(*job);
  // From here on the job stands in the wizard alone, until it is saved there; the copy is for an end that nobody chose.
  KeepEditedJob(name);
  RemoveJob(name);
  editor->Wizard().TakeOver(*job);
  view_.ListPresets().Remove(row);
}

void PassPrediction::AddJob(std::string_view name) {
  view_.ListPresets().Add(name);
}

}  // namespace kestrava::predict
