#include "platform/qt/QtPrinting.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <utility>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

namespace {

constexpr double kPrintPoints = 10;
constexpr double kLeastPoints = 4;
constexpr double kMarginMm = 12;

QFont PrintFont(const std::string& name, double points, bool bold) {
  QFont font(FontByName(name, static_cast<int>(points), bold));
  font.setPointSizeF(points);
  font.setFixedPitch(true);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

int LongestLine(const PrintDocument& document) {
  int longest = 0;
  for (const PrintLine& line : document.lines) longest = std::max(longest, LengthInCharacters(line.text));
  return longest;
}

/// Width of a line of so many characters, in the device's pixels.
double WidthPx(int characters, const PrintDocument& document, double points, QPagedPaintDevice& device) {
  const QFont font = PrintFont(document.font, points, false);
  return characters * QFontMetricsF(font, &device).horizontalAdvance('0');
}

/// Without a printer the dialog can only make a file: it gets a name for it, which it would else leave to the user.
void SuggestFile(QPrinter& printer) {
  if (!QPrinterInfo::availablePrinterNames().isEmpty()) return;
  printer.setOutputFileName(ToQt((TheFileChooser().DocumentsFolder() / "Kestrava.pdf").string()));
}

/// Turns the paper if need be. @return the size of the face in points with which every line fits
double FitPage(const PrintDocument& document, QPagedPaintDevice& device) {
  device.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
  const double widthPx = WidthPx(LongestLine(document), document, kPrintPoints, device);
  if (widthPx > device.width()) device.setPageOrientation(QPageLayout::Landscape);
  if (widthPx <= device.width()) return kPrintPoints;
  return std::max(kLeastPoints, kPrintPoints * device.width() / widthPx);
}

}  // namespace

void PrintLines(const PrintDocument& document, QPagedPaintDevice& device) {
  const double points = FitPage(document, device);
  QPainter painter;
  if (!painter.begin(&device)) throw Fault::DeviceError();
  const QFont plain = PrintFont(document.font, points, false);
  const QFont bold = PrintFont(document.font, points, true);
  const QFontMetricsF metrics(plain, &device);
  double topPx = 0;
  for (const PrintLine& line : document.lines) {
    if (topPx + metrics.height() > device.height()) {
      if (!device.newPage()) throw Fault::DeviceError();
      topPx = 0;
    }
    painter.setFont(line.bold ? bold : plain);
    painter.setPen(QColor::fromRgb(ToRgb(line.colour)));
    painter.drawText(QPointF(0, topPx + metrics.ascent()), ToQt(line.text));
    topPx += metrics.lineSpacing();
  }
  if (!painter.end()) throw Fault::DeviceError();
}

QtPrinting::QtPrinting() : QtPrinting(&QPrinterInfo::defaultPrinter) {}

QtPrinting::QtPrinting(DefaultPrinter defaultPrinter) : defaultPrinter_(std::move(defaultPrinter)) {}

QtPrinting::~QtPrinting() = default;

bool QtPrinting::OpenDialog(const std::string& title) {
  const QtEventLoop::Busy busy;
  chosen_.reset();
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setDocName(ToQt(title));
  SuggestFile(*printer);
  QPrintDialog dialog(printer.get(), QApplication::activeWindow());
  dialog.setObjectName("PrintDialog");
  if (dialog.exec() == QDialog::Accepted) chosen_ = std::move(printer);
  return chosen_ != nullptr;
}

bool QtPrinting::Print(const PrintDocument& document) {
  std::unique_ptr<QPrinter> printer = std::move(chosen_);
  if (!printer) {
    const QPrinterInfo usual = defaultPrinter_();
    if (usual.isNull()) return false;
    printer = std::make_unique<QPrinter>(usual, QPrinter::HighResolution);
  }
  printer->setDocName(ToQt(document.title));
  printer->setCreator("Kestrava");
  PrintLines(document, *printer);
  return true;
}

}  // namespace kestrava::platform::qt
