// The looks of the groups panel: three regions (groups, satellites, information) side by side. Every event goes to
// GroupsPanel, and what that decides is shown.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <memory>

#include "orbit/Tables.h"
#include "panels/GroupsPanel.h"
#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"

#include "OfferText.h"
#include "PanelWidgets.h"

class QGroupBox;

namespace kestrava::panels::ui {

class GroupsWindow : public platform::qt::StationWindow, public GroupsView {
 public:
  /// @param engine  the running one; may answer null
  GroupsWindow(orbit::Tables& tables, std::function<const orbit::OrbitEngine*()> engine);
  ~GroupsWindow() override;

  /// The first time it also loads: the first group's listing may have something to say, over this window.
  void Show() override;
  void OnUnload() override;

 protected:
  void changeEvent(QEvent* event) override;
  bool MayClose() override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Deed = void (GroupsPanel::*)();

  void BuildUi();
  QGroupBox* BuildGroups(QWidget* parent);
  QGroupBox* BuildSatellites(QWidget* parent);
  QGroupBox* BuildInformation(QWidget* parent);
  void ConnectSignals();
  void ConnectTicks();
  void OnClick(QAbstractButton* button, const char* what, Deed deed);
  void Run(const char* what, Deed deed);
  void FilterTyped();
  bool FilterKeyPressed(int key);
  void UpdateButtons();
  void ExplainButtons();

  // GroupsView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  platform::ListBoxControl& GroupList() override { return *groups_; }
  TickListControl& SatelliteList() override { return *satellites_; }
  platform::ComboControl& COMCelestrak() override { return *server_; }
  void SetDetails(std::string_view text) override;
  void ShowFavouriteCount(std::string_view text, bool tooMany) override;
  std::string FilterText() const override;
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title, std::string_view defaultText,
                                     std::string_view refused) override;
  void StartStationAnew() override;

  std::unique_ptr<GroupsPanel> behaviour_;
  platform::qt::ListBox* groups_ = nullptr;
  platform::qt::SkinButton* addGroup_ = nullptr;
  platform::qt::SkinButton* deleteGroup_ = nullptr;
  platform::qt::ComboList* server_ = nullptr;
  platform::qt::SkinButton* addServer_ = nullptr;
  QLineEdit* filter_ = nullptr;
  TickList* satellites_ = nullptr;
  QLabel* count_ = nullptr;
  platform::qt::SkinButton* selectAll_ = nullptr;
  platform::qt::SkinButton* deselectAll_ = nullptr;
  platform::qt::SkinButton* makePrime_ = nullptr;
  OfferText* details_ = nullptr;
  platform::qt::SkinButton* findInfo_ = nullptr;
  bool loaded_ = false;
  bool ended_ = false;
  bool userCloses_ = false;
  bool tooMany_ = false;
};

}  // namespace kestrava::panels::ui
