// The table window through its real controls.
#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <algorithm>
#include <cmath>
#include <map>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/TextHelpers.h"
#include "platform/Fault.h"
#include "platform/qt/Widgets.h"

#include "TableFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

class TableControls : public TableFixture {
 protected:
  /// The numbers of a column from top to bottom.
  static std::vector<double> Numbers(QWidget& table, int column) {
    std::vector<double> numbers;
    for (int row = 0; row < List(table).model()->rowCount(); ++row)
      numbers.push_back(Cell(table, row, column).toDouble());
    return numbers;
  }
  static QString Clipboard() { return QGuiApplication::clipboard()->text(); }
  static void PutOnClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
  static std::vector<int> Widths(QWidget& table) {
    std::vector<int> widths;
    for (int column = 0; column < 8; ++column) widths.push_back(List(table).columnWidth(column));
    return widths;
  }
  QStringList FavouriteNames() const {
    QStringList names;
    for (int i = 1; i <= tables.FaveCount; ++i)
      names << platform::qt::ToQt(tables.FaveList[static_cast<std::size_t>(i)].Name);
    return names;
  }
};

TEST_F(TableControls, TheWindowAndItsHeadsBearTheirCaptions) {
  QWidget& table = OpenTable();
  EXPECT_EQ(table.windowTitle(), "Kestrava - Tabular Satellite Position Data");
  QStringList heads;
  for (int column = 0; column < List(table).model()->columnCount(); ++column)
    heads << List(table).model()->headerData(column, Qt::Horizontal).toString();
  EXPECT_EQ(heads, (QStringList{"Satellite", "Azimuth (deg)", "Elevation (deg)", "Range (km)", "Height (km)",
                                "Latitude (deg)", "Logitude (deg)", "Orbit Number"}));
}

TEST_F(TableControls, EveryControlHasANameForAssistivePrograms) {
  QWidget& table = OpenTable();
  for (const char* name :
       {"TabList", "BUTmin", "BUTexit", "Slocation", "Slat", "Slong", "Sheight", "Slocaltime", "Sgmt", "Sstatus"})
    EXPECT_NE(Child<QWidget>(table, name).accessibleName(), "") << name;
}

TEST_F(TableControls, RowsAndLabelsFillWithTheFirstTickAndFollowEachSecond) {
  QWidget& table = OpenTable();
  EXPECT_EQ(Names(table), FavouriteNames());
  EXPECT_EQ(Cell(table, 0, kAz), "");
  EXPECT_EQ(LabelText(table, "Sstatus"), "");
  Run(1);
  const QString first = Cell(table, 0, kRange);
  EXPECT_NE(first, "");
  EXPECT_EQ(LabelText(table, "Sgmt"), "18:20:01");
  Run(1);
  EXPECT_NE(Cell(table, 0, kRange), first);
  EXPECT_EQ(LabelText(table, "Sgmt"), "18:20:02");
  EXPECT_EQ(LabelText(table, "Slocation"), "Greenwich");
  EXPECT_EQ(LabelText(table, "Slat"), "051.478");
  EXPECT_EQ(LabelText(table, "Slong"), "000.002 W");
  EXPECT_EQ(LabelText(table, "Sheight"), "0 mtrs ");
}

TEST_F(TableControls, TheRowsStandInTheirTwoColours) {
  QWidget& table = OpenTable();
  Run(1);
  int red = 0;
  for (int row = 0; row < tables.FaveCount; ++row) {
    const bool up = Cell(table, row, kEl).toDouble() > 0;
    EXPECT_EQ(ColourOf(table, row), up ? QColor(0xff, 0x30, 0x00) : QColor(0xff, 0xff, 0xff)) << row;
    red += up;
  }
  EXPECT_GT(red, 0);
  EXPECT_EQ(LabelText(table, "Sstatus"), QString("%1 out of 12 Satellites in range").arg(red));
}

TEST_F(TableControls, ATickTellsItsChangesInOneSignal) {
  QWidget& table = OpenTable();
  const auto* shown = qobject_cast<QSortFilterProxyModel*>(List(table).model());
  ASSERT_TRUE(shown);
  int signalsSeen = 0;
  QModelIndex from, to;
  QObject::connect(shown->sourceModel(), &QAbstractItemModel::dataChanged, &table,
                   [&](const QModelIndex& topLeft, const QModelIndex& bottomRight) {
                     ++signalsSeen;
                     from = topLeft;
                     to = bottomRight;
                   });
  Run(1);
  EXPECT_EQ(signalsSeen, 1);
  EXPECT_EQ(from, shown->sourceModel()->index(0, 0));
  EXPECT_EQ(to, shown->sourceModel()->index(11, 7));
}

TEST_F(TableControls, NumbersStandOnTheRightAndTextsOnTheLeft) {
  QWidget& table = OpenTable();
  Run(1);
  for (int column = 0; column < 8; ++column) {
    const bool number = column != kName && column != kDirection;
    const int cell = List(table).model()->index(0, column).data(Qt::TextAlignmentRole).toInt();
    EXPECT_EQ((cell & Qt::AlignRight) != 0, number) << column;
    EXPECT_EQ(List(table).model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt(), cell) << column;
  }
}

TEST_F(TableControls, AClickOnAHeadSortsByTheSizeOfTheNumbers) {
  QWidget& table = OpenTable();
  Run(1);
  for (const int column : {kAz, kEl, kRange, kHeight, kLat, kLon}) {
    ClickHead(table, column);
    std::vector<double> numbers = Numbers(table, column);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end())) << column;
    ClickHead(table, column);
    numbers = Numbers(table, column);
    EXPECT_TRUE(std::is_sorted(numbers.rbegin(), numbers.rend())) << column;
    ClickHead(table, column);
    EXPECT_EQ(Names(table), FavouriteNames()) << "a third click brings the favourites' order back";
  }
}

TEST_F(TableControls, NamesAreSortedAsPeopleDoIt) {
  QWidget& table = OpenTable();
  ClickHead(table, kName);
  EXPECT_EQ(Names(table).first(), "FOX-1B (AO-91)");
  EXPECT_EQ(Names(table).last(), "TIANGONG-2");
  EXPECT_LT(RowOf(table, "NOAA 15"), RowOf(table, "NOAA 18"));
}

TEST_F(TableControls, TheOrderIsKeptAsTheNumbersChange) {
  QWidget& table = OpenTable();
  ClickHead(table, kRange);
  QStringList first;
  for (int i = 0; i < 30; ++i) {
    Run(60);
    const std::vector<double> numbers = Numbers(table, kRange);
    EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    if (i == 0) first = Names(table);
  }
  EXPECT_NE(Names(table), first) << "half an hour changes who is nearer";
}

TEST_F(TableControls, TheSelectionStaysWithItsSatelliteWhereverItMoves) {
  QWidget& table = OpenTable();
  Run(1);
  ClickRow(table, RowOf(table, "HST"));
  ClickHead(table, kRange);
  for (int i = 0; i < 20; ++i) {
    Run(60);
    const QModelIndexList selected = List(table).selectionModel()->selectedRows();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected.first().data().toString(), "HST");
  }
}

TEST_F(TableControls, SortingLeavesTheOrderOfTheVoiceAlone) {
  settings.Set("Speechpack", "1");
  QWidget& table = OpenTable();
  ClickHead(table, kEl);
  ClickHead(table, kEl);
  Run(1);
  ASSERT_EQ(Cell(table, 0, kName), "MOLNIYA 3-50") << "the highest stands first in the view";
  ASSERT_EQ(speech.said.size(), 2u);
  EXPECT_TRUE(speech.said[0].starts_with("SAUDISAT 1C (SO is now in range at heading ")) << speech.said[0];
  EXPECT_TRUE(speech.said[1].starts_with("MOLNIYA 3 50 is now in range at heading ")) << speech.said[1];
}

/// The same evening worked out in another way: every second, for each favourite in the order of the list.
TEST_F(TableControls, AWholeEveningIsSpokenWordForWord) {
  settings.Set("Speechpack", "1");
  OpenTable();
  std::vector<std::string> expected;
  std::map<std::string, bool> up;
  constexpr int kEveningS = 5 * 3600;
  constexpr double kDeg = 3.14159265358979 / 180;
  for (int second = 1; second <= kEveningS; ++second) {
    const platform::SerialDate utc = clock.Read().utc + second / 86400.0;
    for (const QString& name : FavouriteNames()) {
      const std::string satellite = platform::qt::FromQt(name);
      const orbit::LookAngle look = orbit::Engine->LookAngle(satellite, utc);
      const bool isUp = look.elevationRad > 0;
      if (isUp && !up[satellite]) {
        const int heading = static_cast<int>(std::floor(look.azimuthRad / kDeg));
        expected.push_back(orbit::SpokenName(satellite) + " is now in range at heading " + std::to_string(heading) +
                           "degrees.");
      }
      up[satellite] = isUp;
    }
  }
  eventLoop.Advance(kEveningS);
  EXPECT_GT(expected.size(), 15u);
  EXPECT_EQ(speech.said, expected);
}

TEST_F(TableControls, TheSelectedRowsAreCopiedInTheOrderInWhichTheyAreSeen) {
  QWidget& table = OpenTable();
  Run(1);
  ClickHead(table, kEl);
  ClickRow(table, 2);
  ClickRow(table, 0, Qt::ControlModifier);
  PressKey(table, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = Clipboard().split('\n');
  ASSERT_EQ(lines.size(), 2);
  for (int i = 0; i < 2; ++i) {
    QStringList cells;
    for (int column = 0; column < 8; ++column) cells << Cell(table, 2 * i, column);
    EXPECT_EQ(lines[i], cells.join('\t'));
  }
}

TEST_F(TableControls, AHeadSaysInASentenceWhatItsNumbersAre) {
  QWidget& table = OpenTable();
  const auto tip = [&](int column) {
    return List(table).model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
  };
  EXPECT_TRUE(tip(kLon).contains("counted to the west from 0 to 360")) << tip(kLon).toStdString();
  EXPECT_TRUE(tip(kDirection).contains("no number")) << tip(kDirection).toStdString();
  EXPECT_TRUE(tip(kEl).contains("without refraction")) << tip(kEl).toStdString();
  for (int column = kName; column <= kDirection; ++column) EXPECT_TRUE(tip(column).contains("sorts by this column"));
}

TEST_F(TableControls, AllRowsAreCopiedWithTheirHeads) {
  QWidget& table = OpenTable();
  Run(1);
  PressKey(table, Qt::Key_A, Qt::ControlModifier);
  PressKey(table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  const QStringList lines = Clipboard().split('\n');
  ASSERT_EQ(lines.size(), 13);
  EXPECT_TRUE(lines.first().startsWith("Satellite\tAzimuth (deg)\t"));
  EXPECT_TRUE(lines.last().startsWith("MOLNIYA 3-50\t"));
}

TEST_F(TableControls, WithNothingSelectedTheClipboardIsLeftAlone) {
  QWidget& table = OpenTable();
  Run(1);
  List(table).clearSelection();
  PutOnClipboard("mine");
  PressKey(table, Qt::Key_C, Qt::ControlModifier);
  Child<QAction>(table, "mnuCopyHeads").trigger();
  EXPECT_EQ(Clipboard(), "mine");
}

TEST_F(TableControls, TheMenuOfTheRightButtonCopiesToo) {
  QWidget& table = OpenTable();
  Run(1);
  ClickRow(table, 1);
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(List(table).viewport(), &asked);
  auto& menu = Child<QMenu>(table, "mnuTable");
  EXPECT_TRUE(menu.isVisible());
  menu.close();
  Child<QAction>(table, "mnuCopy").trigger();
  EXPECT_TRUE(Clipboard().startsWith("HST\t"));
}

TEST_F(TableControls, TheMenuSortsForWhoHasNoMouse) {
  QWidget& table = OpenTable();
  Run(1);
  const QStringList favourites = Names(table);
  QStringList sorted = favourites;
  std::sort(sorted.begin(), sorted.end());
  ASSERT_NE(favourites, sorted);
  Child<QAction>(table, "mnuSort(0)").trigger();
  EXPECT_EQ(Names(table), sorted);
  Child<QAction>(table, "mnuSort(0)").trigger();
  EXPECT_EQ(Names(table).front(), sorted.back());
  Child<QAction>(table, "mnuSortNone").trigger();
  EXPECT_EQ(Names(table), favourites);
}

TEST_F(TableControls, ColumnsHoldWhatStandsInThemAndDoNotMoveFromTickToTick) {
  FillFavourites(499);
  QWidget& table = OpenTable();
  Run(1);
  const std::vector<int> widths = Widths(table);
  for (int i = 0; i < 60; ++i) {
    Run(1);
    EXPECT_EQ(Widths(table), widths);
  }
  const QFontMetrics metrics = List(table).fontMetrics();
  const QFontMetrics heads = List(table).horizontalHeader()->fontMetrics();
  for (int column = 0; column < 8; ++column) {
    const int room = widths[static_cast<std::size_t>(column)] - 18;
    EXPECT_LE(heads.horizontalAdvance(List(table).model()->headerData(column, Qt::Horizontal).toString()), room);
    for (int row = 0; row < 499; ++row) {
      const QString text = Cell(table, row, column);
      ASSERT_LE(metrics.horizontalAdvance(text), room) << text.toStdString();
    }
  }
}

TEST_F(TableControls, NoStripIsLeftBesideTheLastColumn) {
  QWidget& table = OpenTable();
  Resize(table, 1500, 700);
  EXPECT_EQ(List(table).horizontalHeader()->length(), List(table).viewport()->width());
  List(table).setColumnWidth(kName, 300);
  EXPECT_EQ(List(table).horizontalHeader()->length(), List(table).viewport()->width());
}

TEST_F(TableControls, TheMinimiseButtonMinimises) {
  QWidget& table = OpenTable();
  Click(Child<QWidget>(table, "BUTmin"));
  EXPECT_TRUE(table.isMinimized());
  EXPECT_EQ(eventLoop.RunningTimers(), 1);
}

TEST_F(TableControls, TheExitButtonClosesAndTheNextOpeningBeginsWithWhiteRows) {
  settings.Set("Speechpack", "1");
  QPointer<QWidget> table = &OpenTable();
  Run(1);
  const std::size_t saidFirst = speech.said.size();
  ASSERT_GT(saidFirst, 0u);
  Click(Child<QWidget>(*table, "BUTexit"));
  HandleEvents();
  EXPECT_TRUE(table.isNull());
  EXPECT_FALSE(windows->Find(kTableViewName));
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
  QWidget& again = OpenTable();
  for (int row = 0; row < 12; ++row) EXPECT_EQ(ColourOf(again, row), QColor(0xff, 0xff, 0xff));
  Run(1);
  EXPECT_EQ(speech.said.size(), 2 * saidFirst);
}

TEST_F(TableControls, ClosingByTheFrameStopsTheTimerToo) {
  CloseByUser(OpenTable());
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
}

TEST_F(TableControls, MayCloseWhileTheMessageOfAFaultStands) {
  QPointer<QWidget> table = &OpenTable();
  tables.FaveList[1].Name = "GONE";  // and a damaged count: the search for the first row's name leaves the table
  tables.FaveCount = 501;
  messages.ExpectMessage("The update of the table could not be done", [&] { table->close(); });
  Run(3);
  EXPECT_TRUE(table.isNull());
}

TEST_F(TableControls, EscapeEndsTheSpeakingAndNothingElse) {
  settings.Set("Speechpack", "1");
  QWidget& table = OpenTable();
  PressKey(table, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 1);
  EXPECT_TRUE(table.isVisible());
  settings.Set("Speechpack", "0");
  PressKey(table, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 1) << "a station without speech does not touch the engine";
}

TEST_F(TableControls, TheTabKeyGoesRoundTheListAndTheButtonsAndIsSeen) {
  QWidget& table = OpenTable();
  Run(1);
  QStringList round;
  for (int i = 0; i < 3; ++i) {
    QWidget& control = *table.focusWidget();
    round << control.objectName();
    const QImage with = testing::Grab(control);
    control.clearFocus();
    HandleEvents();
    EXPECT_NE(testing::Grab(control), with) << control.objectName().toStdString();
    control.setFocus(Qt::TabFocusReason);
    PressKey(table, Qt::Key_Tab);
    HandleEvents();
  }
  EXPECT_EQ(round, (QStringList{"TabList", "BUTmin", "BUTexit"}));
}

TEST_F(TableControls, ItCannotBeShownWithoutAnEngine) {
  orbit::Engine.reset();
  EXPECT_THROW(windows->Show(kTableViewName), platform::Fault);
}

}  // namespace
}  // namespace kestrava::views2d::ui
