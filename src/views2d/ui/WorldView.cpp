#include "WorldView.h"

#include <QCursor>
#include <QHBoxLayout>
#include <QResizeEvent>
#include <QScopeGuard>
#include <QScreen>
#include <QVBoxLayout>

#include "platform/Doors.h"
#include "platform/Messages.h"
#include "platform/qt/KeptSize.h"
#include "views2d/ui/WorldView.h"

namespace kestrava::views2d::ui {

namespace {

constexpr int kClockWidthPx = 92;
constexpr int kBesidePx = 32;  // a further map stands so far right of and below the one before

}  // namespace

WorldView::WorldView(const orbit::Sky& sky) : StationWindow(kWorldViewName), sky_(sky) {
  setProperty(platform::qt::kPlaceInSettingsProperty, true);
  BuildUi();
  ConnectSignals();
  behaviour_->Load();
  ShowMode();
}

WorldView::~WorldView() = default;

void WorldView::BuildUi() {
  behaviour_ = std::make_unique<MapWindow>(sky_, *this);
  pictures_ = std::make_unique<MapPictures>();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetNoConstraint);  // as narrow as the user likes
  auto* bar = new QMenuBar(this);
  menus_ = std::make_unique<MapMenus>(*bar, *behaviour_);
  ledClock_ = platform::qt::Named(new platform::qt::LedClockWidget(this), "LEDclock", tr("Clock"));
  ledClock_->setFixedSize(kClockWidthPx, bar->sizeHint().height());
  auto* top = new QHBoxLayout;  // the clock beside the menus, so that no satellite stands behind it
  top->setSpacing(0);
  top->addWidget(bar, 1);
  top->addWidget(ledClock_);
  column->addLayout(top);
  body_ = new QWidget(this);
  body_->setObjectName("body");
  column->addWidget(body_, 1);
  canvas_ = platform::qt::Named(new ViewCanvas(body_), "Final", tr("Map"));
  canvas_->Back().SetLineWidth(2);
  painter_ =
      std::make_unique<MapPainter>(sky_.tables, behaviour_->State(), pictures_->Surfaces(canvas_->Back()), *this);
  expand_ = platform::qt::Named(new platform::qt::SkinButton(QString(), body_), "BUTexpand",
                                tr("Open or close the info pane"));
  pane_ = new InfoPane(body_);
  RemoteStatChanged(0);
  canvas_->setFocus(Qt::OtherFocusReason);
}

void WorldView::ConnectSignals() {
  body_->installEventFilter(this);
  connect(canvas_, &platform::qt::SurfaceWidget::Pressed, this, [this](QPointF at, Qt::MouseButton button) {
    platform::RunUntrapped("The selection of a satellite",
                           [&] { behaviour_->FinalMousedown(button == Qt::RightButton, at.x(), at.y()); });
  });
  connect(&pane_->SliderWarp(), &QSlider::valueChanged, this,
          [this](int value) { behaviour_->WarpSliderChanged(value); });
  connect(&pane_->QuickEta(), &QTreeWidget::itemClicked, this,
          [this](QTreeWidgetItem* row) { behaviour_->QuickEtaItemClicked(platform::qt::FromQt(row->text(1))); });
  connect(&pane_->QuickEta(), &QTreeWidget::itemActivated, this,  // the same by the keyboard
          [this](QTreeWidgetItem* row) { behaviour_->QuickEtaItemClicked(platform::qt::FromQt(row->text(1))); });
  connect(canvas_, &ViewCanvas::MenuAsked, this,
          [this](QPoint at) { menus_->SatelliteMenu().popup(canvas_->mapToGlobal(at)); });
  ConnectButtons();
}

void WorldView::ConnectButtons() {
  connect(expand_, &QAbstractButton::clicked, this,
          [this] { platform::RunUntrapped("The info pane", [&] { behaviour_->ExpandClicked(); }); });
  for (const int i : {0, 1}) {
    connect(&pane_->TimeButton(i), &QAbstractButton::clicked, this,
            [this, i] { platform::RunUntrapped("The time mode", [&] { behaviour_->TimeButtonClicked(i); }); });
    connect(&pane_->InfoModeButton(i), &QAbstractButton::clicked, this,
            [this, i] { platform::RunUntrapped("The info mode", [&] { behaviour_->InfoModeClicked(i); }); });
  }
}

bool WorldView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == body_ && event->type() == QEvent::Resize) behaviour_->Resize();
  return StationWindow::eventFilter(watched, event);
}

void WorldView::SetTag(std::string_view mapMode) {
  behaviour_->ChangeToRegion(mapMode);
}

// Until the first paint the picture without anything on it stands there: of a region that region.
void WorldView::ShowMode() {
  setWindowTitle(platform::qt::ToQt(behaviour_->Title()));
  if (canvas_->HasPresented()) return;
  platform::qt::ImageSurface idle(kWorldDesignWidth, kWorldDesignHeight);
  PaintWorld(idle, pictures_->WorldNormal(), behaviour_->State().MapMode);
  canvas_->SetIdlePicture(idle.Image());
}

void WorldView::OnActivated() {
  behaviour_->Activate();
}

void WorldView::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

void WorldView::ShowInfoLines() {
  for (int i = 0; i < kRemoteStatCount; ++i) {
    if (!changedLines_.test(static_cast<std::size_t>(i))) continue;
    pane_->ShowLine(i, platform::qt::ToQt(behaviour_->State().RemoteStat[static_cast<std::size_t>(i)]));
  }
  changedLines_.reset();
  if (warpTime_) ledClock_->SetValue(*warpTime_);
  warpTime_.reset();
}

MapWindowPlace WorldView::PlaceToStore() const {
  const platform::qt::TwipsPlace place = Place();
  return {place.left, place.top, place.width, place.height, isVisible() && !isMinimized(), body_->height()};
}

void WorldView::ApplyPlace(const WindowPlace& place) {
  SetPlace({place.leftTwips, place.topTwips, place.widthTwips, place.heightTwips});
}

/// The map that was opened last, this one apart; null if it is the only one. While it loads and when it ends it does
/// not stand in the registry.
const WorldView* WorldView::LatestOtherMap() const {
  const WorldView* latest = nullptr;
  for (const auto& [name, window] : platform::TheWindows().Loaded()) {
    const auto* map = dynamic_cast<const WorldView*>(window);
    if (map != nullptr && map != this) latest = map;
  }
  return latest;
}

// Its title and a strip of it stay in sight. Where the screen ends, the next row of maps begins.
std::optional<WindowPlace> WorldView::PlaceBesideLatestMap(const WindowPlace& place) const {
  using platform::qt::PixelsToTwips;
  const WorldView* latest = LatestOtherMap();
  if (latest == nullptr) return std::nullopt;
  const QSize size(platform::qt::TwipsToPixels(place.widthTwips), platform::qt::TwipsToPixels(place.heightTwips));
  const QRect screen = latest->screen()->availableGeometry();
  QRect beside(latest->normalGeometry().topLeft() + QPoint(kBesidePx, kBesidePx), size);
  if (beside.right() > screen.right() || beside.bottom() > screen.bottom())
    beside.moveTopLeft(screen.topLeft() + QPoint(kBesidePx, kBesidePx));
  return WindowPlace{PixelsToTwips(beside.left()), PixelsToTwips(beside.top()), place.widthTwips, place.heightTwips};
}

void WorldView::ApplyLayout(const MapLayout& layout) {
  canvas_->setGeometry(0, 0, layout.finalWidth, layout.finalHeight);
  expand_->setGeometry(layout.expandLeft, 0, kExpandWidthPx, layout.finalHeight);
  using Chevron = platform::qt::SkinButton::Chevron;
  expand_->SetChevron(behaviour_->State().InfoPaneShown ? Chevron::kRight : Chevron::kLeft);
  pane_->setGeometry(layout.contentLeft, 0, pane_->width(), layout.finalHeight);
  pane_->SetTextHeight(layout.textHeight);
  // Pushed past the edge it is out of the keyboard's way too.
  pane_->setVisible(behaviour_->State().InfoPaneShown);
}

void WorldView::LoadWorldPicture(const std::string& file) {
  pictures_->LoadWorld(file);
}

// Painting goes into a back picture that is shown when it is whole, because the paint yields in the middle.
// What asks for a paint during one of its yields gets a whole paint of its own when that one is done.
void WorldView::RepaintMap() {
  paintAsked_ = true;
  if (painting_) return;
  painting_ = true;
  const auto ended = qScopeGuard([this] { painting_ = false; });
  while (paintAsked_ && IsOpen()) {
    paintAsked_ = false;
    canvas_->FitToWidget();
    // What the base layer leaves uncovered (the last column of an odd width) must not keep the last paint's.
    canvas_->Back().Clear(platform::kBlack);
    painter_->RepaintMapScreen();
    if (IsOpen()) canvas_->Present();
  }
}

void WorldView::SetDataText(std::string_view text) {
  const QString shown = platform::qt::ToQt(text).remove('\r');
  if (pane_->DataText().toPlainText() != shown) pane_->DataText().setPlainText(shown);
}

void WorldView::LightButton(MapButtons pair, int index, platform::Colour colour) {
  (pair == MapButtons::kTime ? pane_->TimeButton(index) : pane_->InfoModeButton(index)).SetBackColour(colour);
}

void WorldView::PopUpSatelliteMenu() {
  menus_->SatelliteMenu().popup(QCursor::pos());
}

std::unique_ptr<platform::Window> MakeWorldView() {
  return std::make_unique<WorldView>(orbit::TheSky());
}

}  // namespace kestrava::views2d::ui
