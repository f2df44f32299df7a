#include "predict/PassWizard.h"

#include <cstdint>
#include <utility>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Messages.h"
#include "platform/Text.h"
#include "predict/GroupSatellites.h"
#include "predict/JobWindows.h"

namespace kestrava::predict {

using platform::TheMessages;

const std::string_view kWizardHelp =
    "To create a new job, just fill in this form. First, you can choose a suitable name of the job, just something to "
    "remind you what it does. The Number of days is the duration of predicted results. By default, it starts from "
    "today, but you can set the calendar to change the start date. Next theres 2 options that if ticked, will print "
    "and / or save the predictions the moment its finish. You can of course, print or save it manually by using the "
    "usual buttons on the instant predictions section. You then select all the satellites that you want to include in "
    "this particular job by using the drop-down box, these work identical to the satellite selection on the instant "
    "predictions. When you're happy with the settings, click on Save this job, and it will be added to the list, and "
    "be available every time you run kestrava.";

namespace {

constexpr platform::FaultTrap kUnloadTrap{"PassWizard-FormUnload"};
constexpr int kDaysOfAYear = 365;

bool IsBlank(std::string_view text) {
  return platform::Trim(text).empty();
}

}  // namespace

std::string WarningOf(std::string_view days, int satellites) {
  std::string warning;
  if (satellites > kJobRows) warning = "A job runs its first " + std::to_string(kJobRows) + " satellites. ";
  const double number = platform::Val(days);
  if (number > INT16_MAX) return warning + "A job of more than " + std::to_string(INT16_MAX) + " days lists nothing.";
  if (number > kDaysOfAYear) return warning + "More than a year: long to wait for, and farther than elements reach.";
  return warning;
}

void PassWizard::Load() {
  const platform::FaultTrap trap{"PassWizard-FormLoad"};
  trap([&] { view_.PlaceByPassWindow(kWizardOffsetTwips); });
  trap([&] { view_.ApplySkin(); });
  trap([&] { AddGroupNames(tables_, view_.COMgroup()); });
  FormChanged();
  view_.COMgroup().SetText("Select a Group");
  view_.COMsatname().SetText("Select a Satellite");
}

void PassWizard::Unload() {
  open_ = false;
  PutBack();
}

void PassWizard::GroupClicked() {
  platform::RunUntrapped("the listing of satellites", [&] {
    const std::uint64_t read = ++reads_;
    const auto stopped = [&] { return !open_ || reads_ != read; };
    view_.COMsatname().Clear();
    AddSatellitesOfGroup(tables_, view_.COMgroup().Text(), view_.COMsatname(), stopped);
    if (!stopped()) view_.COMsatname().SetText("Select a Satellite");
  });
}

void PassWizard::AddClicked() {
  if (platform::Contains(view_.COMgroup().Text(), "Select")) {
    TheMessages().Show("First select a Group, then a satellite, then click the add button");
    return;
  }
  view_.SatList().Add(view_.COMsatname().Text());
  FormChanged();
}

void PassWizard::RemoveClicked() {
  const int row = view_.SatList().Selected();
  if (row < 0) {
    TheMessages().Show("Select a satellite on the list first");
    return;
  }
  view_.SatList().Remove(row);
  FormChanged();
}

void PassWizard::SaveJobClicked() {
  try {
    SaveJob();
  } catch (const platform::Fault& fault) {
    TheMessages().Show("There was an error when trying to save this job, the error was '" + std::string(fault.what()) +
                       "'");
  }
}

void PassWizard::SaveJob() {
  JobRecord job = Form();
  job.name = std::string(platform::Trim(job.name));
  job.days = std::string(platform::Trim(job.days));
  if (job.name.empty()) {
    TheMessages().Show("you must choose a job name");
  } else if (job.days.empty()) {
    TheMessages().Show("You must fill in the days box");
  } else if (view_.SatList().Count() == 0) {
    TheMessages().Show("You havn't chosen any satellites");
  } else {
    AppendJob(job);
    GiveUpCopy();
    if (JobListing* listing = FindJobListing()) listing->AddJob(job.name);
    view_.EndWindow();
  }
}

void PassWizard::CancelClicked() {
  if (!AskToLose()) return;
  GiveUpCopy();
  view_.EndWindow();
}

bool PassWizard::MayClose() {
  if (edited_.empty()) return AskToLose();
  if (Form() == asTakenOver_) return true;
  return TheMessages().AskYesNo(
      "The job '" + edited_ + "' goes back to the list as it was before, without your changes. Close the wizard ?",
      "Close Job Wizard");
}

bool PassWizard::AskToLose() {
  return TheMessages().AskYesNo("You will loose the information for this job, Are you sure ?", "Cancel Job");
}

bool PassWizard::HoldsAJob() const {
  return !IsBlank(view_.Tname()) || !IsBlank(view_.Tnumofdays()) || view_.SatList().Count() > 0;
}

void PassWizard::Edit(const JobRecord& job) {
  view_.SetTname(job.name);
  for (const std::string& satellite : job.satellites) view_.SatList().Add(satellite);
  view_.SetTnumofdays(platform::NumberText(platform::ParseNumber(job.days)));
  if (job.save == "1") view_.SetCHsave(true);
  if (job.print == "1") view_.SetCHprint(true);
  FormChanged();
}

void PassWizard::TakeOver(const JobRecord& job) {
  edited_ = job.name;
  asTakenOver_ = Form();
}

void PassWizard::PutBack() {
  const std::string edited = std::exchange(edited_, {});
  if (edited.empty()) return;
  kUnloadTrap([&] {
    const auto name = PutBackEditedJob(edited);
    if (JobListing* listing = FindJobListing(); listing && name) listing->AddJob(*name);
  });
}

/// A copy that stays would only come back: its job is in the file, or was given up by the user.
void PassWizard::GiveUpCopy() {
  const std::string edited = std::exchange(edited_, {});
  if (!edited.empty()) kUnloadTrap([&] { ForgetEditedJob(edited); });
}

void PassWizard::FormChanged() {
  view_.ShowWarning(WarningOf(view_.Tnumofdays(), view_.SatList().Count()));
}

JobRecord PassWizard::Form() const {
  JobRecord form{view_.Tname(), {}, view_.Tnumofdays(), view_.CHsave() ? "1" : "0", view_.CHprint() ? "1" : "0"};
  for (int row = 0; row < view_.SatList().Count(); ++row) form.satellites.push_back(view_.SatList().Row(row));
  return form;
}

}  // namespace kestrava::predict
