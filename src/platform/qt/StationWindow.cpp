#include "platform/qt/StationWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <algorithm>

#include "platform/Doors.h"
#include "platform/Settings.h"
#include "platform/Speech.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/KeptSize.h"
#include "platform/qt/QtSkin.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kGreatestSidePx = 16383;
constexpr int kFarthestPx = 1 << 24;
constexpr const char* kSkinnedProperty = "skinned";  // the window has asked for its skin

/// The window that was last told that the user has come to it.
QPointer<QWidget>& LastActivated() {
  static QPointer<QWidget> window;
  return window;
}

/// One of the program's own boxes or menus has taken the focus.
bool OwnBoxIsOpen() {
  return QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr;
}

QList<QRect> AvailableAreas() {
  QList<QRect> areas{QGuiApplication::primaryScreen()->availableGeometry()};
  for (const QScreen* screen : QGuiApplication::screens()) areas << screen->availableGeometry();
  return areas;
}

bool IsLoaded(const Window& window) {
  if (TheDoors().windows == nullptr) return false;
  const auto loaded = TheWindows().Loaded();
  return std::any_of(loaded.begin(), loaded.end(), [&](const auto& entry) { return entry.second == &window; });
}

}  // namespace

QRect OntoAScreen(const QRect& client, const QList<QRect>& screens) {
  const QRect sized(client.topLeft(), QSize(std::clamp(client.width(), 1, kGreatestSidePx),
                                            std::clamp(client.height(), 1, kGreatestSidePx)));
  const bool seen = std::any_of(screens.begin(), screens.end(), [&](const QRect& s) { return s.intersects(sized); });
  if (seen || screens.isEmpty()) return sized;
  const QRect& home = screens.first();
  const int right = std::max(home.left(), home.right() + 1 - sized.width());
  const int bottom = std::max(home.top(), home.bottom() + 1 - sized.height());
  return {QPoint(std::clamp(sized.left(), home.left(), right), std::clamp(sized.top(), home.top(), bottom)),
          sized.size()};
}

StationWindow::StationWindow(std::string_view name, QWidget* parent)
    : QWidget(parent, Qt::Window), skin_(std::make_unique<QtSkin>(*this)) {
  setObjectName(ToQt(name));
  untoldTimer_ = TheEventLoop().MakeTimer(kUntoldActivationMs, [this] {
    untoldTimer_->SetEnabled(false);
    if (isVisible()) Activated();
  });
}

StationWindow::~StationWindow() = default;

void StationWindow::Show() {
  TakeKeptSize(*this);
  setWindowState(windowState() & ~Qt::WindowMinimized);  // one that filled the screen fills it again
  show();
  raise();
  activateWindow();
  if (!isActiveWindow()) untoldTimer_->SetEnabled(true);
}

void StationWindow::Hide() {
  untoldTimer_->SetEnabled(false);
  hide();
}

void StationWindow::OnUnload() {
  unloading_ = true;
  KeepChangedSize(*this);
  Hide();
}

void StationWindow::SetBackgroundColour(Colour colour) {
  QPalette own = palette();
  own.setColor(QPalette::Window, QColor::fromRgb(ToRgb(colour)));
  setPalette(own);
}

TwipsPlace StationWindow::Place() const {
  const QRect client = geometry();
  return {PixelsToTwips(client.left()), PixelsToTwips(client.top()), PixelsToTwips(client.width()),
          PixelsToTwips(client.height())};
}

void StationWindow::SetPlace(const TwipsPlace& place) {
  const auto position = [](int twips) { return std::clamp(TwipsToPixels(twips), -kFarthestPx, kFarthestPx); };
  const QRect wanted(position(place.left), position(place.top), std::max(1, TwipsToPixels(place.width)),
                     std::max(1, TwipsToPixels(place.height)));
  setGeometry(OntoAScreen(wanted, AvailableAreas()));
}

void StationWindow::Unload() {
  if (IsLoaded(*this)) {
    TheWindows().Unload(*this);
  } else {
    Hide();
  }
}

void StationWindow::ApplySkin() {
  setProperty(kSkinnedProperty, true);
  if (skin_->Applied() && !ReadSwitch("Skin", "1")) {
    skin_ = std::make_unique<QtSkin>(*this);
    setPalette({});
  }
  LoadSkin(*this, *skin_);
  update();
}

void StationWindow::Activated() {
  untoldTimer_->SetEnabled(false);
  leftForOwnBox_ = false;
  LastActivated() = this;
  if (unloading_) return;
  KeepTitleOnScreen();
  RunUntrapped("The update of the window \"" + FromQt(windowTitle()) + '"', [this] { OnActivated(); });
}

/// A stored place is that of the inside: the frame that the desktop puts around it may reach beyond the upper edge, and
/// a window cannot be moved by a title that is not there.
void StationWindow::KeepTitleOnScreen() {
  if (isMaximized() || isFullScreen() || !screen()) return;
  const int top = screen()->availableGeometry().top();
  const bool onlyTheFrame = geometry().top() >= top && frameGeometry().top() < top;
  if (onlyTheFrame) move(frameGeometry().left(), top);
}

void StationWindow::NoteDeactivation() {
  leftForOwnBox_ = OwnBoxIsOpen();
}

bool StationWindow::event(QEvent* event) {
  const bool handled = QWidget::event(event);
  if (event->type() == QEvent::StyleChange && property(kSkinnedProperty).toBool() &&
      skin_->Applied() != ReadSwitch("Skin", "1")) {
    ApplySkin();
  }
  if (event->type() == QEvent::WindowDeactivate) NoteDeactivation();
  if (event->type() == QEvent::WindowActivate && isVisible()) {
    const bool backFromOwnBox = leftForOwnBox_ && LastActivated() == this;
    leftForOwnBox_ = false;
    if (!backFromOwnBox) Activated();
  }
  return handled;
}

void StationWindow::closeEvent(QCloseEvent* event) {
  if (!unloading_ && !MayClose()) {
    event->ignore();
    return;
  }
  event->accept();
  if (!unloading_) Unload();
}

/// A key that nothing in the window has a use for comes here.
void StationWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
    StopSpeaking();
  } else if (event->matches(QKeySequence::Close) && ClosesByKey()) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void StationWindow::paintEvent(QPaintEvent*) {
  if (!skin_->Applied()) return;
  QPainter painter(this);
  skin_->Paint(painter, rect());
}

}  // namespace kestrava::platform::qt
