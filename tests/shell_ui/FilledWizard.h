// A job wizard with a name in its form: an end of the run asks for it.
#pragma once

#include "predict/JobWindows.h"
#include "predict/PassWizard.h"

#include "ShellWindows.h"
#include "support/RecordingChoices.h"

namespace kestrava::shell::ui {

class FilledWizard : public TaggedStub, public predict::JobEditor, private predict::PassWizardView {
 public:
  predict::PassWizard& Wizard() override { return wizard_; }

 private:
  void PlaceByPassWindow(int) override {}
  void ApplySkin() override {}
  void EndWindow() override {}
  platform::ComboControl& COMgroup() override { return combo_; }
  platform::ComboControl& COMsatname() override { return combo_; }
  platform::ListBoxControl& SatList() override { return list_; }
  std::string Tname() const override { return "Week"; }
  void SetTname(std::string_view) override {}
  std::string Tnumofdays() const override { return {}; }
  void SetTnumofdays(std::string_view) override {}
  bool CHsave() const override { return false; }
  void SetCHsave(bool) override {}
  bool CHprint() const override { return false; }
  void SetCHprint(bool) override {}
  void ShowWarning(std::string_view) override {}

  testing::RecordingCombo combo_;
  testing::RecordingListBox list_;
  predict::PassWizard wizard_{orbit::TheTables(), *this};
};

}  // namespace kestrava::shell::ui
