// The job wizard's looks: builds the form, hands every event to PassWizard and shows what that decides.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <memory>

#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"
#include "predict/JobWindows.h"
#include "predict/PassWizard.h"

class QGridLayout;
class QGroupBox;
class QVBoxLayout;

namespace kestrava::predict::ui {

class PassWizardWindow : public platform::qt::StationWindow, public PassWizardView, public JobEditor {
 public:
  explicit PassWizardWindow(const orbit::Tables& tables);
  ~PassWizardWindow() override;

  void OnUnload() override;
  PassWizard& Wizard() override { return *behaviour_; }

 protected:
  bool MayClose() override { return behaviour_->MayClose(); }
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Deed = void (PassWizard::*)();

  void BuildUi();
  void BuildJob(QVBoxLayout& column);
  void BuildSatellites(QVBoxLayout& column);
  QWidget* BuildHelp();
  QWidget* BuildFoot();
  void ConnectSignals();
  void UpdateHints();
  void OnClick(QAbstractButton* button, const char* what, Deed deed);

  // PassWizardView
  void PlaceByPassWindow(int offsetTwips) override;
  void ApplySkin() override { StationWindow::ApplySkin(); }
  void EndWindow() override { Unload(); }
  platform::ComboControl& COMgroup() override { return *group_; }
  platform::ComboControl& COMsatname() override { return *satname_; }
  platform::ListBoxControl& SatList() override { return *satList_; }
  std::string Tname() const override;
  void SetTname(std::string_view name) override;
  std::string Tnumofdays() const override;
  void SetTnumofdays(std::string_view days) override;
  bool CHsave() const override { return save_->isChecked(); }
  void SetCHsave(bool ticked) override { save_->setChecked(ticked); }
  bool CHprint() const override { return print_->isChecked(); }
  void SetCHprint(bool ticked) override { print_->setChecked(ticked); }
  void ShowWarning(std::string_view text) override;

  std::unique_ptr<PassWizard> behaviour_;
  QLineEdit* name_ = nullptr;
  QLineEdit* days_ = nullptr;
  QCheckBox* save_ = nullptr;
  QCheckBox* print_ = nullptr;
  platform::qt::ComboList* group_ = nullptr;
  platform::qt::ComboList* satname_ = nullptr;
  platform::qt::ListBox* satList_ = nullptr;
  platform::qt::SkinButton* add_ = nullptr;
  platform::qt::SkinButton* remove_ = nullptr;
  platform::qt::SkinButton* saveJob_ = nullptr;
  platform::qt::SkinButton* cancel_ = nullptr;
  QLabel* warning_ = nullptr;
};

}  // namespace kestrava::predict::ui
