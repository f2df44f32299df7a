#include "platform/qt/Forms.h"

#include <QApplication>

#include "platform/qt/ImageSurface.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

namespace {

constexpr int kButtonWidthPx = 92;

}  // namespace

QLabel* LabelFor(QWidget* control, const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setBuddy(control);
  control->setAccessibleName(QString(text).remove('&'));
  return label;
}

SkinButton* MakeButton(const char* name, const QString& text, const QString& hint, QWidget* parent) {
  auto* button = Named(new SkinButton(text, parent), name, QString(text).remove('&').remove("..."));
  button->setToolTip(hint);
  button->setMinimumWidth(kButtonWidthPx);
  return button;
}

void SetHint(QAbstractButton& button, const QString& hint, const QString& missing) {
  button.setToolTip(missing.isEmpty() ? hint : hint + ". " + missing);
}

void EmboldenTitle(QGroupBox& section) {
  QFont font = QApplication::font();
  font.setBold(true);
  section.setFont(font);
  font.setBold(false);
  for (QWidget* child : section.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) child->setFont(font);
}

void ColourDefaultButton(SkinButton& button) {
  const QColor face = SkinIsOn() ? Tones().accent : QApplication::palette().color(QPalette::Highlight);
  button.SetBackColour(FromRgb(face.rgb()));
}

QScrollArea* ScrollingArea(QWidget* content, QWidget* parent) {
  auto* area = new QScrollArea(parent);
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  // The area by itself follows the Tab key alone, not mnemonics and not a box that code gives the keyboard. A mouse
  // button is left in peace: what it is pressed on must not move away from it.
  QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
    if (now == nullptr || QGuiApplication::mouseButtons() != Qt::NoButton) return;
    if (area->widget() != nullptr && area->widget()->isAncestorOf(now)) area->ensureWidgetVisible(now);
  });
  return area;
}

}  // namespace kestrava::platform::qt
