// The behaviour of the job wizard ("Pass Prediction Job Wizard"), in which a job is made or changed. Knows no toolkit:
// the window is a PassWizardView that shows what is decided here and hands every event on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orbit/Tables.h"
#include "platform/ChoiceControls.h"
#include "predict/PassJobs.h"

namespace kestrava::predict {

inline constexpr std::string_view kWizardWindow = "PassWizard";  ///< its name in the registry
inline constexpr std::string_view kWizardCaption = "Pass Prediction Job Wizard";
inline constexpr std::string_view kWizardHelpCaption = "Pass Prediction Job Wizard Help";  ///< Frame5
extern const std::string_view kWizardHelp;                                                 ///< Label22
inline constexpr int kWizardOffsetTwips = 100;  ///< right of and below the pass window's top left corner

/// What the behaviour asks of the window and its controls.
class PassWizardView {
 public:
  virtual ~PassWizardView() = default;
  /// Moves the window so far right of and below the top left corner of the pass window, if that is open.
  virtual void PlaceByPassWindow(int offsetTwips) = 0;
  virtual void ApplySkin() = 0;
  /// Ends the window through the registry, which calls PassWizard::Unload.
  virtual void EndWindow() = 0;

  virtual platform::ComboControl& COMgroup() = 0;
  virtual platform::ComboControl& COMsatname() = 0;
  virtual platform::ListBoxControl& SatList() = 0;
  virtual std::string Tname() const = 0;
  virtual void SetTname(std::string_view name) = 0;
  virtual std::string Tnumofdays() const = 0;
  virtual void SetTnumofdays(std::string_view days) = 0;
  virtual bool CHsave() const = 0;
  virtual void SetCHsave(bool ticked) = 0;
  virtual bool CHprint() const = 0;
  virtual void SetCHprint(bool ticked) = 0;
  /// What is odd about the job as it stands in the form; empty: nothing.
  virtual void ShowWarning(std::string_view text) = 0;
};

/// What will be odd when a job of so many days and satellites runs. It is taken all the same.
std::string WarningOf(std::string_view days, int satellites);

class PassWizard {
 public:
  /// @param view  outlives this object
  PassWizard(const orbit::Tables& tables, PassWizardView& view) : tables_(tables), view_(view) {}

  void Load();
  /// The window's end. An edited job that was neither saved nor given up goes back as it was.
  void Unload();

  void GroupClicked();
  void AddClicked();
  void RemoveClicked();
  void SaveJobClicked();
  void CancelClicked();
  /// The frame's close, and the launcher's while the wizard holds a job: asks the question of BUTcancel. An edited job
  /// goes back as it was: then it asks only whether changes may be lost. @return false to stay
  bool MayClose();
  /// Something stands in the form that would be lost.
  bool HoldsAJob() const;

  /// Fills the form from a job's record: its satellites join those of the list, and boxes are ticked, never unticked.
  /// @throws platform::Fault "Type mismatch" where the days are no number; what comes before them stands in the form
  void Edit(const JobRecord& job);
  /// The form's job has left the file, which keeps a copy: it now stands here.
  void TakeOver(const JobRecord& job);
  /// Writes the edited job back as it was, if the form holds one that the file has not.
  void PutBack();
  bool HoldsEditedJob() const { return !edited_.empty(); }
  /// Days or satellites are others.
  void FormChanged();

 private:
  void SaveJob();
  bool AskToLose();
  void GiveUpCopy();
  JobRecord Form() const;

  const orbit::Tables& tables_;
  PassWizardView& view_;
  bool open_ = true;
  std::string edited_;       ///< name of the job of which the file keeps a copy; empty for none
  JobRecord asTakenOver_;    ///< the form at that moment
  std::uint64_t reads_ = 0;  ///< grows with every element file: the reading of an earlier one ends
};

}  // namespace kestrava::predict
