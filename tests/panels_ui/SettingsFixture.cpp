#include "SettingsFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <set>

#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "panels/ui/PanelWindows.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

namespace {

constexpr int kNotch = 120;

}  // namespace

SettingsFixture::SettingsFixture(bool devices) {
  platform::qt::ApplyTheme(true);
  if (devices) {
    for (const std::string_view name : {kTrackingWindow, kRecordingWindow})
      windows->Register(name, [] { return MakeMainSettingsWindow(); });  // asked for by name alone
  }
  windows->Register(kMainSettingsWindow, [] { return MakeMainSettingsWindow(); });
  windows->Register(kSettings2DWindow, [] { return MakeSettings2DWindow(); });
}

SettingsFixture::~SettingsFixture() {
  while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
  eventLoop.RunEvent([] {});
  platform::qt::ApplyTheme(false);
}

QWidget& SettingsFixture::Open(std::string_view name) {
  eventLoop.RunEvent([&] { windows->Show(name); });
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(name));
}

QWidget& SettingsFixture::OpenMain() {
  return Open(kMainSettingsWindow);
}

QWidget& SettingsFixture::Open2D() {
  return Open(kSettings2DWindow);
}

void SettingsFixture::CloseByUser(QWidget& window) {
  eventLoop.RunEvent([&] { window.close(); });
  HandleEvents();
}

void SettingsFixture::HandleEvents() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

void SettingsFixture::Click(QWidget& window, const QString& name) {
  auto& button = Child<QAbstractButton>(window, name);
  const int middle = button.height() / 2;
  const QPoint at = button.isCheckable() ? QPoint(middle, middle) : button.rect().center();
  eventLoop.RunEvent([&] { QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, at); });
}

void SettingsFixture::PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers) {
  eventLoop.RunEvent([&] { QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers); });
}

void SettingsFixture::Type(QWidget& widget, const char* text) {
  eventLoop.RunEvent([&] { QTest::keyClicks(&widget, text); });
}

void SettingsFixture::KeyAt(QWidget& window, const QString& name, Qt::Key key) {
  auto& control = Child<QWidget>(window, name);
  control.setFocus();
  PressKey(control, key);
}

void SettingsFixture::Choose(QWidget& window, const char* combo, const char* entry) {
  auto& list = Child<QComboBox>(window, combo);
  const int row = list.findText(entry);
  if (row < 0) throw std::runtime_error(std::string(combo) + " has no entry " + entry);
  eventLoop.RunEvent([&] {
    list.setCurrentIndex(row);
    emit list.activated(row);
  });
}

void SettingsFixture::TypeInto(QWidget& window, const char* combo, const char* text) {
  auto& box = Child<QComboBox>(window, combo);
  box.setFocus();
  box.lineEdit()->selectAll();
  PressKey(box, Qt::Key_Delete);
  Type(box, text);
}

void SettingsFixture::TurnWheel(QWidget& widget) {
  QWidget& window = *widget.window();
  const QPoint at = widget.mapTo(&window, widget.rect().center());
  if (!window.rect().contains(at)) throw std::runtime_error("the wheel's place is out of sight");
  eventLoop.RunEvent([&] {
    const QPointF global = window.mapToGlobal(at);
    QWheelEvent turn(widget.rect().center(), global, {}, {0, kNotch}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QSpontaneKeyEvent::setSpontaneous(&turn);  // as from the window system: what takes no turn hands it on
    qApp->notify(&widget, &turn);
  });
  HandleEvents();
}

std::vector<std::string> SettingsFixture::TabOrder(QWidget& window) {
  std::vector<std::string> names;
  const QWidget* at = &window;
  do {
    at = at->nextInFocusChain();
    if (at != &window && (at->focusPolicy() & Qt::TabFocus) != 0 && at->focusProxy() == nullptr && at->isVisible())
      names.push_back(platform::qt::FromQt(at->objectName()));
  } while (at != &window);
  return names;
}

std::vector<std::string> SettingsFixture::MnemonicClashes(QWidget& window) {
  std::vector<std::string> clashes;
  std::set<QChar> letters;
  const auto take = [&](const QString& text) {
    const qsizetype at = text.indexOf('&');
    if (at < 0 || !letters.insert(text.at(at + 1).toLower()).second) clashes.push_back(platform::qt::FromQt(text));
  };
  for (const auto* button : window.findChildren<QAbstractButton*>()) take(button->text());
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->text().contains('&')) take(label->text());
  }
  return clashes;
}

std::vector<std::string> SettingsFixture::LabelsWithoutField(QWidget& window) {
  std::vector<std::string> labels;
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->buddy() == nullptr && !label->wordWrap()) labels.push_back(platform::qt::FromQt(label->text()));
  }
  return labels;
}

std::vector<std::string> SettingsFixture::ControlsWithoutName(QWidget& window) {
  std::vector<std::string> controls;
  for (const auto* widget : window.findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->focusProxy() != nullptr || !widget->isVisible())
      continue;
    if (widget->objectName().isEmpty() || widget->accessibleName().isEmpty())
      controls.push_back(widget->metaObject()->className() + platform::qt::FromQt(" " + widget->objectName()));
  }
  return controls;
}

}  // namespace kestrava::panels::ui
