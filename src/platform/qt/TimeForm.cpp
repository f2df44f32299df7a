#include "platform/qt/TimeForm.h"

#include <QRegularExpression>

namespace kestrava::platform::qt {
namespace {

constexpr auto kPlainForm = "HH:mm:ss";

/// A form with its literal texts ('h') blanked out, so that places in it are places in the form.
QString WithoutLiterals(const QString& form) {
  QString bare = form;
  bool literal = false;
  for (QChar& c : bare) {
    const bool quote = c == '\'';
    if (quote) literal = !literal;
    if (quote || literal) c = QChar(0x2400);  // no letter and no sign of any form
  }
  return bare;
}

/// The zone is a "t", alone or in brackets, in front of the time or behind it.
QString WithoutZone(const QString& longForm) {
  static const QRegularExpression kZone(R"([,\s]*[(\[]?t+[)\]]?[,\s]*)");
  const QRegularExpressionMatch zone = kZone.match(WithoutLiterals(longForm));
  QString form = longForm;
  if (zone.hasMatch()) form.remove(zone.capturedStart(), zone.capturedLength());
  return form.trimmed();
}

}  // namespace

QString WithSeconds(const QString& shortForm, const QString& longForm) {
  static const QRegularExpression kHourAndMinute(R"([hH]+([^\w\s\x{2400}])(m+))",
                                                 QRegularExpression::UseUnicodePropertiesOption);
  const QString bare = WithoutLiterals(shortForm);
  if (bare.contains('s')) return shortForm;
  const QRegularExpressionMatch found = kHourAndMinute.match(bare);
  if (found.hasMatch()) return QString(shortForm).insert(found.capturedEnd(), found.captured(1) + "ss");
  const QString form = WithoutZone(longForm);
  return WithoutLiterals(form).contains('s') ? form : QString(kPlainForm);
}

}  // namespace kestrava::platform::qt
