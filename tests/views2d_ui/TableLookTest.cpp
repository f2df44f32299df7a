// The looks of the table window. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a folder.
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QScrollBar>

#include <gtest/gtest.h>

#include "platform/qt/Theme.h"

#include "TableFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

constexpr double kLegible = 4.5;
constexpr int kDarkest = 0x1e;
constexpr int kBesideText = 6;

class TableLook : public TableFixture {
 protected:
  static void Shot(QWidget& table, const std::string& name) {
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(table, ("table-" + name + "-x" + scale).c_str());
  }

  /// The grounds that really stand in the picture, left of the text of each row.
  static std::vector<QColor> Grounds(QWidget& table) {
    QTableView& list = List(table);
    const QImage picture = testing::Grab(*list.viewport());
    std::vector<QColor> grounds;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      const QRect cell = list.visualRect(list.model()->index(row, kName));
      const QPoint at = QPoint(kBesideText, cell.center().y()) * picture.devicePixelRatio();
      if (list.viewport()->rect().contains(cell)) grounds.push_back(picture.pixelColor(at));
    }
    const QPoint below = QPoint(kBesideText, list.viewport()->height() - 2) * picture.devicePixelRatio();
    grounds.push_back(picture.pixelColor(below));
    return grounds;
  }

  static void ExpectDarkGround(QWidget& table) {
    for (const QColor& ground : Grounds(table)) {
      SCOPED_TRACE(ground.name().toStdString());
      EXPECT_LE(std::max({ground.red(), ground.green(), ground.blue()}), kDarkest);
      EXPECT_GE(platform::qt::ContrastRatio(ground, QColor(0xff, 0xff, 0xff)), kLegible);
      EXPECT_GE(platform::qt::ContrastRatio(ground, QColor(0xff, 0x30, 0x00)), kLegible);
    }
  }
};

TEST_F(TableLook, AtThreeSizes) {
  QWidget& table = OpenTable();
  Run(1);
  Shot(table, "opened");
  Resize(table, 1500, 900);
  Shot(table, "large");
  Resize(table, 200, 100);
  Shot(table, "small");
  EXPECT_LE(table.width(), 360);
}

TEST_F(TableLook, FiveHundredRows) {
  FillFavourites(499);
  QWidget& table = OpenTable();
  Run(1);
  ClickHead(table, kEl);
  ClickHead(table, kEl);
  ClickRow(table, 2);
  ClickRow(table, 4, Qt::ShiftModifier);
  Shot(table, "full");
  EXPECT_EQ(List(table).model()->rowCount(), 499);
}

TEST_F(TableLook, TheGroundIsDarkWithTheSkinAndBothColoursReadOnIt) {
  QWidget& table = OpenTable();
  Run(1);
  ClickRow(table, 0);
  EXPECT_GT(Grounds(table).size(), 5u);
  ExpectDarkGround(table);
}

TEST_F(TableLook, TheGroundIsDarkOnThePlainDesktopTooAndBothColoursReadOnIt) {
  settings.Set("Skin", "0");
  platform::qt::ApplyTheme(false);
  QWidget& table = OpenTable();
  Run(1);
  ClickRow(table, 3);
  EXPECT_GT(Grounds(table).size(), 5u);
  ExpectDarkGround(table);
  Shot(table, "plain");
}

TEST_F(TableLook, WithoutFavouritesItSaysSo) {
  tables.FaveCount = 0;
  QWidget& table = OpenTable();
  Run(1);
  Shot(table, "empty");
  const QImage picture = testing::Grab(*List(table).viewport());
  QImage bare(picture.size(), picture.format());
  bare.fill(picture.pixelColor(1, 1));
  EXPECT_NE(picture, bare) << "a text stands in the middle";
  ExpectDarkGround(table);
}

}  // namespace
}  // namespace kestrava::views2d::ui
