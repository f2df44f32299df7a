// Documents on paper: what is laid out is written to a PDF file, whose text and pages an independent reader gives back.
#include <QImage>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <set>

#include <gtest/gtest.h>

#include "platform/qt/QtPrinting.h"
#include "platform/qt/Widgets.h"

#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

constexpr Colour kBlue = 0xFA0000;
constexpr const char* kHeading =
    "SATELLITE---------  DATE-------    TIME----    S-AZ    MAX EL-----    DURATION    E-AZ        SUNLIT  VISIBLE";
constexpr const char* kRow =
    "ISS (ZARYA)         15 NOV 2026    00:31:37    182     07 (AZ 134)    00:07:48    087         No      No ";

class Printing : public ::testing::Test {
 protected:
  static PrintDocument Passes(int rows) {
    PrintDocument document{"Passes", "Lucida Console", {{"Credit", false, kBlack}, {"", false, kBlack}}};
    document.lines.push_back({kHeading, false, kBlue});
    for (int i = 0; i < rows; ++i) document.lines.push_back({kRow, false, kBlack});
    return document;
  }

  void PrintOn(QPageSize::PageSizeId paper, const PrintDocument& document) {
    QPdfWriter writer(Pdf());
    writer.setPageSize(QPageSize(paper));
    PrintLines(document, writer);
  }

  QString Pdf() const { return folder_.filePath("print.pdf"); }

  static QByteArray Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " (package poppler-utils)";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
  }

  QStringList PagesOfText() const {
    QStringList pages = QString::fromUtf8(Output("pdftotext", {"-layout", Pdf(), "-"})).split('\f');
    pages.removeLast();  // what follows the last page's end
    return pages;
  }

  /// The first page, 72 pixels an inch.
  QImage Page() const {
    Output("pdftoppm", {"-png", "-r", "72", "-f", "1", "-l", "1", "-singlefile", Pdf(), folder_.filePath("page")});
    return QImage(folder_.filePath("page.png")).convertToFormat(QImage::Format_RGB32);
  }

  QTemporaryDir folder_;
};

TEST_F(Printing, TheTextComesOutWithItsColumns) {
  PrintOn(QPageSize::A4, Passes(3));
  const QStringList pages = PagesOfText();
  ASSERT_EQ(pages.size(), 1);
  const QStringList lines = pages[0].split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 5);
  EXPECT_EQ(lines[0].trimmed(), "Credit");
  for (const char* column : {"DATE", "TIME", "S-AZ", "E-AZ", "SUNLIT", "VISIBLE"}) {
    EXPECT_TRUE(lines[1].contains(column)) << column;
  }
  EXPECT_EQ(lines[2], lines[4]);
  EXPECT_EQ(lines[2].simplified(), QString(kRow).simplified());
}

TEST_F(Printing, RowsWiderThanThePageTurnTheSheet) {
  for (const auto paper : {QPageSize::A4, QPageSize::Letter}) {
    PrintOn(paper, Passes(3));
    EXPECT_GT(Page().width(), Page().height());
    PrintOn(paper, {"Short", "Lucida Console", {{"A short line", false, kBlack}}});
    EXPECT_LT(Page().width(), Page().height());
  }
}

TEST_F(Printing, NothingIsCutOffAtAnyEdge) {
  for (const auto paper : {QPageSize::A4, QPageSize::Letter, QPageSize::A5}) {
    PrintOn(paper, Passes(100));
    const QImage page = Page();
    const int margin = 25;  // under the 34 that the margins measure
    for (int y = 0; y < page.height(); ++y) {
      for (int x = 0; x < page.width(); ++x) {
        const bool edge = x < margin || y < margin || x >= page.width() - margin || y >= page.height() - margin;
        if (!edge) continue;
        ASSERT_EQ(page.pixel(x, y), qRgb(255, 255, 255)) << x << ", " << y;
      }
    }
    for (const QString& text : PagesOfText()) {
      for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith("ISS")) continue;
        EXPECT_EQ(line.simplified(), QString(kRow).simplified());
      }
    }
  }
}

TEST_F(Printing, LongListsGoOverManyPagesAndLoseNothing) {
  PrintOn(QPageSize::A4, Passes(500));
  const QStringList pages = PagesOfText();
  EXPECT_GT(pages.size(), 8);
  EXPECT_EQ(pages.join("").count("ISS (ZARYA)"), 500);
}

TEST_F(Printing, TheHeadingIsBlueAndTheRestBlackOnWhite) {
  PrintOn(QPageSize::A4, Passes(40));
  const QImage page = Page();
  testing::SaveShot(page, "print-a4");
  bool blue = false;
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) {
      const QColor pixel(page.pixel(x, y));
      const int tint = std::max(std::abs(pixel.red() - pixel.green()), std::abs(pixel.green() - pixel.blue()));
      if (tint < 16) continue;  // grey: black letters with soft edges
      EXPECT_EQ(pixel.red(), pixel.green()) << x << ", " << y;
      EXPECT_GT(pixel.blue(), pixel.red());
      blue = true;
      ASSERT_LT(y, page.height() / 4) << "only the heading, at the top, is coloured";
    }
  }
  EXPECT_TRUE(blue);
}

TEST_F(Printing, AnEmptyDocumentIsOneEmptyPage) {
  PrintOn(QPageSize::A4, {"Empty", "Lucida Console", {}});
  EXPECT_EQ(PagesOfText().size(), 1);
}

TEST_F(Printing, ThePrintersOwnFileComesOutTheSame) {
  {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(Pdf());
    printer.setPageSize(QPageSize(QPageSize::A4));
    PrintLines(Passes(60), printer);
  }
  EXPECT_GT(Page().width(), Page().height());
  EXPECT_EQ(PagesOfText().join("").count("ISS (ZARYA)"), 60);
}

TEST_F(Printing, WithoutAnyPrinterNothingIsWritten) {
  QtPrinting printing([] { return QPrinterInfo(); });
  EXPECT_FALSE(printing.Print(Passes(3)));
}

}  // namespace
}  // namespace kestrava::platform::qt
