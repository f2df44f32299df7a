#include "platform/qt/QtDoors.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTime>
#include <QUrl>
#include <cstdio>

#include "platform/qt/Fonts.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/Theme.h"
#include "platform/qt/TimeForm.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kAskHandlerMs = 2000;

constexpr int kIconPx = 40;

/// A round sign with one letter, in the tones of the look that holds.
QPixmap Sign(QChar letter, double scale) {
  const QPalette palette = QApplication::palette();
  const QColor disc = SkinIsOn() ? Tones().accent : palette.color(QPalette::Highlight);
  QPixmap pixmap(static_cast<int>(kIconPx * scale), static_cast<int>(kIconPx * scale));
  pixmap.setDevicePixelRatio(scale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(disc);
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(QRectF(1, 1, kIconPx - 2, kIconPx - 2));
  QFont font = InterfaceFont();
  font.setPixelSize(kIconPx * 5 / 8);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(ReadableOn(disc));
  painter.drawText(QRectF(0, 0, kIconPx, kIconPx), Qt::AlignCenter, QString(letter));
  return pixmap;
}

int Ask(std::string_view text, std::string_view title, QChar sign, QMessageBox::StandardButtons buttons) {
  const QtEventLoop::Busy busy;
  QMessageBox box(QMessageBox::NoIcon, ToQt(title), ToQt(text), buttons, QApplication::activeWindow());
  box.setObjectName("MessageBox");
  box.setIconPixmap(Sign(sign, box.devicePixelRatioF()));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  if (QAbstractButton* stay = box.button(QMessageBox::Cancel)) stay->setText(QObject::tr("S&tay"));
  return box.exec();
}

void Tell(std::string_view text) {
  std::fputs((std::string(text) + '\n').c_str(), stderr);
}

/// The kind of thing that a target is, as handlers are registered for it.
QString MimeTypeOf(const QUrl& url) {
  if (!url.isLocalFile()) return "x-scheme-handler/" + url.scheme();
  return QMimeDatabase().mimeTypeForFile(url.toLocalFile()).name();
}

bool HasHandler(const QString& mimeType) {
  const QString asker = QStandardPaths::findExecutable("xdg-mime");
  if (asker.isEmpty()) return false;
  QProcess process;
  process.start(asker, {"query", "default", mimeType});
  if (!process.waitForFinished(kAskHandlerMs)) {
    process.kill();
    process.waitForFinished(kAskHandlerMs);
    return false;
  }
  return !process.readAllStandardOutput().trimmed().isEmpty();
}

QUrl UrlOf(const QString& target) {
  const QFileInfo file(target);
  if (file.exists()) return QUrl::fromLocalFile(file.absoluteFilePath());
  const QUrl url(target, QUrl::TolerantMode);
  const bool bareAddress = url.scheme().isEmpty() && !target.startsWith('/') && target.contains('.');
  return bareAddress ? QUrl("https://" + target) : url;
}

}  // namespace

void QtMessages::Show(std::string_view text, std::string_view title, MessageIcon icon) {
  if (silent_) return Tell(text);
  Ask(text, title, icon == MessageIcon::kExclamation ? '!' : 'i', QMessageBox::Ok);
}

bool QtMessages::AskYesNo(std::string_view text, std::string_view title) {
  if (silent_) {
    Tell(text);
    return false;
  }
  return Ask(text, title, '?', QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

Unstored QtMessages::AskUnstored(std::string_view text, std::string_view title) {
  if (silent_) {
    Tell(text);
    return Unstored::kStay;
  }
  switch (Ask(text, title, '?', QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel)) {
    case QMessageBox::Save:
      return Unstored::kSave;
    case QMessageBox::Discard:
      return Unstored::kDiscard;
    default:
      return Unstored::kStay;
  }
}

std::optional<std::filesystem::path> QtFileChooser::ChooseSaveFile(std::string_view title,
                                                                   const std::filesystem::path& suggested) {
  const QtEventLoop::Busy busy;
  QString kinds = QObject::tr("All files (*)");
  if (suggested.extension() == ".txt") kinds = QObject::tr("Text files (*.txt)") + ";;" + kinds;
  const QString file =
      QFileDialog::getSaveFileName(QApplication::activeWindow(), ToQt(title), ToQt(suggested.string()), kinds);
  if (file.isEmpty()) return std::nullopt;
  return std::filesystem::path(FromQt(file));
}

/// The desktop may name a folder that nobody has made yet.
std::filesystem::path QtFileChooser::DocumentsFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return FromQt(QFileInfo(documents).isDir() ? documents : QDir::homePath());
}

bool QtOpener::Open(std::string_view target) {
  if (QGuiApplication::platformName() == "offscreen") return false;
  const QUrl url = UrlOf(ToQt(target));
  if (!url.isValid() || url.scheme().isEmpty()) return false;
  if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile())) return false;
  const QString starter = QStandardPaths::findExecutable("xdg-open");
  if (starter.isEmpty() || !HasHandler(MimeTypeOf(url))) return false;
  return QProcess::startDetached(starter, {url.isLocalFile() ? url.toLocalFile() : url.toString(QUrl::FullyEncoded)});
}

bool QtOpener::Run(const std::string& program, const std::vector<std::string>& arguments) {
  const QString found = QStandardPaths::findExecutable(ToQt(program));
  if (found.isEmpty()) return false;
  QStringList list;
  for (const std::string& argument : arguments) list << ToQt(argument);
  return QProcess::startDetached(found, list);
}

std::string QtLocale::DecimalSign() const {
  return FromQt(QLocale::system().decimalPoint());
}

std::string QtLocale::GroupSign() const {
  return FromQt(QLocale::system().groupSeparator());
}

std::string QtLocale::DateText(SerialDate local) const {
  const DateParts parts = SplitSerial(local);
  return FromQt(QLocale::system().toString(QDate(parts.year, parts.month, parts.day), QLocale::ShortFormat));
}

std::string QtLocale::TimeText(SerialDate local) const {
  const DateParts parts = SplitSerial(local);
  const QLocale system = QLocale::system();
  const QString form = WithSeconds(system.timeFormat(QLocale::ShortFormat), system.timeFormat(QLocale::LongFormat));
  return FromQt(system.toString(QTime(parts.hour, parts.minute, parts.second), form));
}

}  // namespace kestrava::platform::qt
