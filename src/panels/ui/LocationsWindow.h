// The looks of the locations panel: builds its controls, hands every event to LocationsPanel and shows what that
// decides. Beside the fields stand a map and a search box, for whoever does not know his co-ordinates.
#pragma once

#include <QBoxLayout>
#include <memory>

#include "panels/LocationsPanel.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"

#include "PanelWidgets.h"
#include "PlaceForm.h"
#include "PlaceMap.h"

namespace kestrava::panels::ui {

class LocationsWindow : public platform::qt::StationWindow, public LocationsView {
  Q_OBJECT

 public:
  explicit LocationsWindow(orbit::Tables& tables);
  ~LocationsWindow() override;

  void OnUnload() override;

 protected:
  bool MayClose() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  using Deed = void (LocationsPanel::*)();

  void BuildUi();
  QWidget* BuildList(QWidget* parent);
  QWidget* BuildPlace(QWidget* parent);
  QWidget* BuildFoot();
  void ArrangeSides();
  void OrderTabs();
  void ConnectSignals();
  void OnClick(QAbstractButton* button, Deed deed);
  /// Runs an event of the user's, then lets the words, the mark and the hint follow the boxes.
  template <class Body>
  void Do(Body&& body);
  void Follow();
  void ExplainButtons();
  void TakeSpot(const GeoPoint& place);
  void TakeCity(const store::City& city);
  void ShowSearch(int found);

  // LocationsView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  bool IsVisible() const override { return StationWindow::IsVisible(); }
  TickListControl& ListLocations() override { return *list_; }
  std::string BoxText(PlaceBox box) const override;
  void SetBoxText(PlaceBox box, std::string_view text) override;
  CheckControl& Tick(PlacePage page, PlaceTick tick) override { return form_->Tick(page, tick); }
  CheckControl& DecDeg() override { return *form_->decimals; }
  void ShowPage(PlacePage page) override { form_->ShowPage(page); }
  void FocusBox(PlaceBox box) override;
  void RunActivation() override;

  std::unique_ptr<LocationsPanel> behaviour_;
  QBoxLayout* sides_ = nullptr;
  QBoxLayout* listButtons_ = nullptr;
  QWidget* listSide_ = nullptr;
  QWidget* placeSide_ = nullptr;
  TickList* list_ = nullptr;
  PlaceForm* form_ = nullptr;
  PlaceMap* map_ = nullptr;
  QLabel* hint_ = nullptr;
  platform::qt::SkinButton* add_ = nullptr;
  platform::qt::SkinButton* save_ = nullptr;
  platform::qt::SkinButton* remove_ = nullptr;
  platform::qt::SkinButton* setPrime_ = nullptr;
};

}  // namespace kestrava::panels::ui
