#include "Findings.h"

#include <QAbstractButton>
#include <QLabel>
#include <algorithm>

namespace kestrava::accessibility {

namespace {

QString ShownText(const QWidget& control) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) return button->text();
  if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
  return {};
}

bool Matches(const KnownException& known, const QString& window, const QString& control, const QString& missing) {
  const QString name(known.control);
  return window == known.window && (name.isEmpty() || control.contains(name)) && missing.startsWith(known.missing);
}

}  // namespace

QString Described(const QWidget& control) {
  const QString kind = QString(control.metaObject()->className()).section("::", -1);
  const QString name = control.objectName().isEmpty() ? "(no object name)" : control.objectName();
  const QString text = ShownText(control).left(40);
  return kind + ' ' + name + (text.isEmpty() ? QString() : " \"" + text + '"');
}

void Findings::Add(const Visit& visit, const QString& control, const QString& missing) {
  const auto is = [&](const KnownException& known) { return Matches(known, visit.window, control, missing); };
  if (std::any_of(known_.begin(), known_.end(), is)) return;
  const std::string line = (visit.window + ": " + control + ": " + missing).toStdString();
  if (std::find(lines_.begin(), lines_.end(), line) == lines_.end()) lines_.push_back(line);
}

void Findings::Add(const Visit& visit, const QWidget& control, const QString& missing) {
  Add(visit, Described(control), missing);
}

}  // namespace kestrava::accessibility
