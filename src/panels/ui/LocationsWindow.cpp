#include "LocationsWindow.h"

#include <QHBoxLayout>
#include <QResizeEvent>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "panels/ui/PanelWindows.h"
#include "platform/Messages.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Widgets.h"
#include "station/Hub.h"

namespace kestrava::panels::ui {

using platform::qt::FromQt;
using platform::qt::MakeButton;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kHintNamePx = 260;
constexpr int kWidthPx = 860;
constexpr int kHeightPx = 640;
constexpr int kMarginPx = 10;
constexpr int kGapPx = 6;
constexpr int kListWidthPx = 180;
constexpr int kListHeightPx = 90;
constexpr int kNarrowListHeightPx = 112;

}  // namespace

LocationsWindow::LocationsWindow(orbit::Tables& tables) : StationWindow(kLocationsWindow) {
  behaviour_ = std::make_unique<LocationsPanel>(tables, *this);
  setWindowTitle(ToQt(kLocationsCaption));
  BuildUi();
  ConnectSignals();
  Do([this] { behaviour_->Load(); });
}

LocationsWindow::~LocationsWindow() = default;

void LocationsWindow::BuildUi() {
  auto* content = new QWidget(this);
  listSide_ = BuildList(content);
  placeSide_ = BuildPlace(content);
  sides_ = new QBoxLayout(QBoxLayout::LeftToRight, content);
  sides_->setContentsMargins(0, 0, 0, 0);
  sides_->setSpacing(2 * kGapPx);
  sides_->addWidget(listSide_, 2);
  sides_->addWidget(placeSide_, 5);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kGapPx);
  column->addWidget(platform::qt::ScrollingArea(content, this), 1);
  column->addWidget(BuildFoot());
  OrderTabs();
  resize(kWidthPx, kHeightPx);
  list_->setFocus();
}

/// In a narrow window the list stands above the fields, not beside them.
void LocationsWindow::ArrangeSides() {
  if (sides_ == nullptr) return;
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const int needed = listSide_->minimumSizeHint().width() + placeSide_->minimumSizeHint().width() + sides_->spacing() +
                     2 * kMarginPx + bar;
  const bool narrow = width() < needed;
  sides_->setDirection(narrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  listButtons_->setDirection(narrow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  list_->setMaximumHeight(narrow ? kNarrowListHeightPx : QWIDGETSIZE_MAX);
}

void LocationsWindow::resizeEvent(QResizeEvent* event) {
  ArrangeSides();
  StationWindow::resizeEvent(event);
}

QWidget* LocationsWindow::BuildList(QWidget* parent) {
  auto* box = Named(new QGroupBox(tr("Locations"), parent), "Frame1");
  list_ = Named(new TickList(box), "ListLocations");
  list_->setMinimumSize(kListWidthPx, kListHeightPx);
  auto* label = platform::qt::LabelFor(list_, tr("&Ticked places are drawn on the map"), box);
  label->setWordWrap(true);
  list_->setAccessibleName(tr("Locations"));
  setPrime_ = MakeButton("BUTsetPrime", tr("Make &Primary Location"), {}, box);
  remove_ = MakeButton("BUTremovelocations", tr("D&elete Selected Location"), {}, box);
  auto* column = new QVBoxLayout(box);
  column->setSpacing(kGapPx);
  column->addWidget(label);
  column->addWidget(list_, 1);
  listButtons_ = new QBoxLayout(QBoxLayout::TopToBottom);
  for (QWidget* button : {setPrime_, remove_}) {
    button->setMinimumWidth(button->sizeHint().width());
    listButtons_->addWidget(button);
  }
  column->addLayout(listButtons_);
  platform::qt::EmboldenTitle(*box);
  return box;
}

QWidget* LocationsWindow::BuildPlace(QWidget* parent) {
  auto* content = new QWidget(parent);
  form_ = new PlaceForm(content);
  auto* picker = Named(new QGroupBox(tr("Or Click on the Map"), content), "Frame3");
  map_ = Named(new PlaceMap(picker), "PlaceMap");
  auto* label = platform::qt::LabelFor(
      map_, tr("&Map: the cursor keys move the mark by 1°, with Shift by 10°, with Ctrl by 0.1°"), picker);
  label->setWordWrap(true);
  map_->setAccessibleName(tr("Map of the world"));
  map_->setAccessibleDescription(tr("Chooses a place: the cursor keys move the mark"));
  auto* below = new QVBoxLayout(picker);
  below->setSpacing(kGapPx);
  below->addWidget(label);
  below->addWidget(map_, 1);
  platform::qt::EmboldenTitle(*picker);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2 * kGapPx);
  column->addWidget(form_);
  column->addWidget(picker, 1);
  return content;
}

QWidget* LocationsWindow::BuildFoot() {
  auto* foot = new QWidget(this);
  hint_ = Named(new QLabel(foot), "LAhint", tr("What is not stored yet"));
  hint_->setWordWrap(true);
  hint_->setMinimumHeight(2 * hint_->fontMetrics().lineSpacing());
  hint_->setTextFormat(Qt::PlainText);
  add_ = MakeButton("BUTaddlocations", tr("&Add Location"),
                    tr("Adds what the boxes hold to the list as a new place, drawn on the map"), foot);
  save_ = MakeButton("BUTsaveSetting", tr("&Save Setting"), {}, foot);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(hint_, 1);
  for (QWidget* button : {add_, save_}) {
    button->setMinimumWidth(button->sizeHint().width());
    row->addWidget(button);
  }
  return foot;
}

void LocationsWindow::OrderTabs() {
  std::vector<QWidget*> order{list_, setPrime_, remove_};
  const std::vector<QWidget*> fields = form_->InOrder();
  order.insert(order.end(), fields.begin(), fields.end());
  for (QWidget* last : {static_cast<QWidget*>(map_), static_cast<QWidget*>(add_), static_cast<QWidget*>(save_)}) {
    order.push_back(last);
  }
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

void LocationsWindow::ConnectSignals() {
  OnClick(add_, &LocationsPanel::AddClicked);
  OnClick(save_, &LocationsPanel::SaveClicked);
  OnClick(remove_, &LocationsPanel::RemoveClicked);
  OnClick(setPrime_, &LocationsPanel::SetPrimeClicked);
  OnClick(form_->decimals, &LocationsPanel::DecDegClicked);
  connect(list_, &TickList::Chosen, this, [this] {
    form_->city->clear();  // the boxes hold another place from here on
    Do([this] { behaviour_->ListClicked(); });
  });
  connect(list_, &TickList::Ticked, this, [this](int row, bool ticked) { behaviour_->Ticked(row, ticked); });
  connect(form_, &PlaceForm::Edited, this, &LocationsWindow::Follow);
  connect(form_, &PlaceForm::SignClicked, this,
          [this](PlacePage page, PlaceTick tick) { Do([&] { behaviour_->TickClicked(page, tick); }); });
  connect(form_->city, &CitySearch::Chosen, this, &LocationsWindow::TakeCity);
  connect(form_->city, &CitySearch::Searched, this, &LocationsWindow::ShowSearch);
  connect(map_, &PlaceMap::Picked, this, &LocationsWindow::TakeSpot);
}

void LocationsWindow::OnClick(QAbstractButton* button, Deed deed) {
  connect(button, &QAbstractButton::clicked, this, [this, deed] { Do([&] { (*behaviour_.*deed)(); }); });
}

template <class Body>
void LocationsWindow::Do(Body&& body) {
  platform::RunUntrapped("The work on the locations", body);
  Follow();
}

void LocationsWindow::Follow() {
  const TypedPlace typed = behaviour_->Typed();
  form_->ShowWords(ToQt(typed.words), !typed.point);
  map_->SetMark(typed.point);
  const QString name = ToQt(list_->Row(std::max(0, list_->Selected())));
  const QString chosen = fontMetrics().elidedText(name, Qt::ElideMiddle, kHintNamePx);
  hint_->setText(!behaviour_->IsEdited() ? QString()
                                         : tr("Not stored yet. \"Save Setting\" changes \"%1\", \"Add Location\" makes "
                                              "a new place of it.")
                                               .arg(chosen));
  ExplainButtons();
}

/// Every button can be clicked at any time. Where it would have nothing to act on it says what is missing.
void LocationsWindow::ExplainButtons() {
  const int item = list_->Selected();
  const QString other = tr("This is the primary location: select another place first");
  const QString none = tr("Select a place of the list first");
  setPrime_->setToolTip(item < 0    ? none
                        : item == 0 ? other
                                    : tr("Makes the selected place, as the boxes show it, the one that the station "
                                         "stands at; the old one takes its row in the list"));
  remove_->setToolTip(item < 0    ? none
                      : item == 0 ? other
                                  : tr("Takes the selected place off the list, without asking"));
  save_->setToolTip(item < 0 ? none : tr("Changes the selected place to what the boxes hold"));
}

void LocationsWindow::TakeSpot(const GeoPoint& place) {
  const PickedPlace picked{place.latitudeDeg, place.longitudeEastDeg, std::nullopt, std::nullopt};
  Do([&] { behaviour_->PlacePicked(picked); });
}

void LocationsWindow::TakeCity(const store::City& city) {
  PickedPlace place{city.latitudeDeg, city.longitudeEastDeg, city.name, std::nullopt};
  if (city.heightM) place.heightM = static_cast<std::int16_t>(*city.heightM);
  Do([&] { behaviour_->PlacePicked(place); });
  form_->cityAnswer->setText(city.heightM ? tr("Name, place and height are filled in.")
                                          : tr("Filled in but for the height: the list has none."));
}

void LocationsWindow::ShowSearch(int found) {
  form_->cityAnswer->setText(found == 0 ? tr("No such city in the list. Click on the map instead.")
                                        : tr("A city fills in the boxes below."));
}

std::string LocationsWindow::BoxText(PlaceBox box) const {
  return FromQt(form_->Box(box).text());
}

void LocationsWindow::SetBoxText(PlaceBox box, std::string_view text) {
  form_->Box(box).setText(ToQt(text));
}

void LocationsWindow::FocusBox(PlaceBox box) {
  form_->Box(box).setFocus(Qt::OtherFocusReason);
  form_->Box(box).selectAll();
}

void LocationsWindow::RunActivation() {
  station::TheHub().RunActivation();
}

/// A window that goes with the launcher does not come here: nobody is asked anything then.
bool LocationsWindow::MayClose() {
  bool may = true;
  Do([&] { may = behaviour_->MayClose(); });
  return may;
}

void LocationsWindow::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

std::unique_ptr<platform::Window> MakeLocationsWindow() {
  return std::make_unique<LocationsWindow>(orbit::TheTables());
}

}  // namespace kestrava::panels::ui
