#include "HorizonView.h"

#include <QHelpEvent>
#include <QScopeGuard>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Messages.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/KeptSize.h"
#include "platform/qt/Widgets.h"
#include "views2d/ui/HorizonView.h"

#include "MenuEntries.h"

namespace kestrava::views2d::ui {

using platform::qt::Named;

namespace {

constexpr int kExpandWidthPx = 14;
constexpr int kInfoWidthPx = 240;
constexpr int kInfoHeightPx = 260;
constexpr int kInfoTopPx = 64;     // clear of the compass labels
constexpr int kInfoBottomPx = 40;  // and of the last line
constexpr int kInfoLeastPx = 60;
constexpr int kLineWidthPx = 2;

constexpr int kNoMark = -1;
constexpr int Mark(HorizonMark mark) {
  return static_cast<int>(mark);
}

constexpr auto kOptions = std::to_array<HorizonMenuRow>({
    {"Mposannounce", "Position Announcer", "Ctrl+Shift+P", &HorizonWindow::TogglePositionAnnouncer,
     Mark(HorizonMark::kAnnouncePosition)},
});

constexpr auto kControls = std::to_array<HorizonMenuRow>({
    {"Msouth", "Centered on South", "Ctrl+1", &HorizonWindow::SouthClicked, Mark(HorizonMark::kSouth)},
    {"Mnorth", "Centered on North", "Ctrl+2", &HorizonWindow::NorthClicked, Mark(HorizonMark::kNorth)},
    {nullptr, nullptr, nullptr, nullptr, kNoMark},
    {"mnuSpeechAnnouncment", "Speech Announcment", "Ctrl+Shift+N", &HorizonWindow::MakeAnnouncement, kNoMark},
});

// Dark in both looks: it stands on a night sky.
constexpr const char* kInfoStyle =
    "QPlainTextEdit { background: rgba(18, 22, 27, 235); color: #dddddd; border: 1px solid #46505c;"
    " border-right: none; padding: 4px; selection-background-color: #4f4d12; selection-color: #ffffff; }"
    "QPlainTextEdit:focus { border-color: #d6cf00; }";

}  // namespace

HorizonView::HorizonView(const orbit::Sky& sky) : StationWindow(kHorizonName), sky_(sky) {
  setProperty(platform::qt::kPlaceInSettingsProperty, true);
  setWindowTitle("Kestrava - Panoramic Horizon View");
  behaviour_ = std::make_unique<HorizonWindow>(sky, *this);
  BuildUi();
  painter_ = std::make_unique<HorizonPainter>(sky, behaviour_->State(),
                                              HorizonSurfaces{canvas_->Back(), backDrop_, sprites_.Set()}, *behaviour_);
  ConnectSignals();
  behaviour_->Load();
}

HorizonView::~HorizonView() = default;

void HorizonView::BuildUi() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->setSizeConstraint(QLayout::SetNoConstraint);  // as narrow as the user likes
  auto* bar = new QMenuBar(this);
  BuildMenus(*bar);
  column->addWidget(bar);
  body_ = Named(new QWidget(this), "body");
  column->addWidget(body_, 1);
  canvas_ = Named(new HorizonCanvas(body_), "Final", tr("Horizon"));
  canvas_->Back().SetLineWidth(kLineWidthPx);
  // The widest face in which NORTH still fits into the 40 pixels that it is given at the right edge.
  canvas_->Back().SetFont("Arial", 8, true);
  BuildInformation();
  canvas_->setFocus(Qt::OtherFocusReason);
}

void HorizonView::BuildMenus(QMenuBar& bar) {
  QMenu* options = Named(bar.addMenu("&Options"), "M1", tr("Options"));
  AddRows(*options, kOptions);
  QMenu* controls = Named(bar.addMenu("&Controls"), "M2", tr("Controls"));
  AddRows(*controls, kControls);
  SetMarked(HorizonMark::kAnnouncePosition, true);
  SetMarked(HorizonMark::kSouth, true);
}

void HorizonView::AddRows(QMenu& menu, std::span<const HorizonMenuRow> rows) {
  for (const HorizonMenuRow& row : rows) {
    if (row.objectName == nullptr) {
      menu.addSeparator();
      continue;
    }
    const EntryKind kind = row.mark == kNoMark ? EntryKind::kPlain : EntryKind::kMarked;
    QAction* entry =
        AddMenuEntry(menu, row.objectName, row.text, row.key, kind, [this, row] { ((*behaviour_).*row.action)(); });
    if (row.mark != kNoMark) marked_[static_cast<std::size_t>(row.mark)] = entry;
  }
}

void HorizonView::BuildInformation() {
  expand_ = Named(new platform::qt::SkinButton(QString(), body_), "BUTexpand",
                  tr("Open or close the satellite's information"));
  satInfo_ = Named(new QPlainTextEdit(body_), "txtSatInfo", tr("Satellite data"));
  satInfo_->setReadOnly(true);
  satInfo_->setTabChangesFocus(true);
  satInfo_->setFrameStyle(QFrame::NoFrame);
  satInfo_->setFont(platform::qt::FontByName("Small fonts", 9, false));
  satInfo_->setStyleSheet(kInfoStyle);
  SetDataText(kNoInformation);
}

void HorizonView::ConnectSignals() {
  body_->installEventFilter(this);
  canvas_->installEventFilter(this);
  connect(canvas_, &platform::qt::SurfaceWidget::Pressed, this, [this](QPointF at) {
    platform::RunUntrapped("The selection of a satellite", [&] { behaviour_->FinalMousedown(at.x(), at.y()); });
  });
  connect(expand_, &QAbstractButton::clicked, this,
          [this] { platform::RunUntrapped("The information box", [&] { behaviour_->ExpandClicked(); }); });
}

bool HorizonView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == body_ && event->type() == QEvent::Resize) behaviour_->Resize();
  if (watched == canvas_ && event->type() == QEvent::ToolTip) {
    ShowTip(static_cast<QHelpEvent&>(*event));
    return true;
  }
  return StationWindow::eventFilter(watched, event);
}

void HorizonView::ShowTip(const QHelpEvent& event) {
  const QPointF at = canvas_->ToSurface(event.pos());
  QToolTip::showText(event.globalPos(), platform::qt::ToQt(behaviour_->WhatLiesAt(at.x(), at.y())), canvas_);
}

void HorizonView::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

int HorizonView::TextWidthPx() const {
  // In a window narrower than the box its button stays within reach.
  return std::max(0, std::min(kInfoWidthPx, body_->width() - kExpandWidthPx));
}

int HorizonView::ExpandWidthPx() const {
  return kExpandWidthPx;
}

TextSize HorizonView::LabelSize(std::string_view text) const {
  return {canvas_->Back().TextWidth(text), canvas_->Back().LineHeight()};
}

void HorizonView::ApplyPlace(const WindowPlace& place) {
  SetPlace({place.leftTwips, place.topTwips, place.widthTwips, place.heightTwips});
}

void HorizonView::ApplyLayout(const HorizonLayout& layout) {
  canvas_->setGeometry(0, 0, layout.finalWidth, layout.finalHeight);
  const int room = layout.finalHeight - kInfoTopPx - kInfoBottomPx;
  const int height = std::clamp(room, kInfoLeastPx, kInfoHeightPx);
  const bool shown = behaviour_->State().SatInfoShown;
  expand_->setGeometry(layout.expandLeft, kInfoTopPx, kExpandWidthPx, height);
  using Chevron = platform::qt::SkinButton::Chevron;
  expand_->SetChevron(shown ? Chevron::kRight : Chevron::kLeft);
  satInfo_->setGeometry(layout.textLeft, kInfoTopPx, TextWidthPx(), height);
  satInfo_->setVisible(shown);  // out of view it is out of the keyboard's way too
}

void HorizonView::LoadBackDrop(const std::string& file) {
  scenery_.Load(ReadPicture(file));
  backDrop_.Load(scenery_.Picture());
  LightScenery();
  canvas_->SetIdlePicture(scenery_.Picture());
}

void HorizonView::LightScenery() {
  const platform::FaultTrap trap{"Horizon - PaintScreen"};
  trap([&] {
    const orbit::LookAngle sun = sky_.engine.LookAngle("sun", platform::TheClock().Read().utc);
    const SunInView inView{orbit::RadToDeg(sun.azimuthRad), orbit::RadToDeg(sun.elevationRad),
                           behaviour_->State().CentreNorth};
    if (scenery_.Light(inView)) backDrop_.Load(scenery_.Picture());
  });
}

// A paint may show a message, and with it let events run: what stands on the screen changes only when it is whole.
void HorizonView::RepaintHorizon() {
  if (painting_) return;
  painting_ = true;
  const auto ended = qScopeGuard([this] { painting_ = false; });
  canvas_->FitToWidget();
  LightScenery();
  painter_->PaintScreen();
  if (behaviour_->IsOpen()) canvas_->Present();
}

void HorizonView::SetDataText(std::string_view text) {
  const QString shown = platform::qt::ToQt(text).remove('\r');
  if (satInfo_->toPlainText() != shown) satInfo_->setPlainText(shown);
}

std::unique_ptr<platform::Window> MakeHorizonView() {
  return std::make_unique<HorizonView>(orbit::TheSky());
}

}  // namespace kestrava::views2d::ui
