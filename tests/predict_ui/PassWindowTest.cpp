// The pass window through its real controls: selection, calculation, sorting, clearing, saving, printing.
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QProgressBar>
#include <QTableView>
#include <QTest>
#include <set>

#include <gtest/gtest.h>

#include "platform/TextFile.h"
#include "predict/PassPrediction.h"
#include "predict/PassText.h"

#include "PassFixture.h"

namespace kestrava::predict::ui {
namespace {

using Strings = std::vector<std::string>;

class PassWindowTest : public PassFixture {
 protected:
  static int SelectedRows(QWidget& window) {
    return static_cast<int>(Child<QTableView>(window, "LISTpasses").selectionModel()->selectedRows().size());
  }
};

TEST_F(PassWindowTest, TheLoadShowsTodayAndThePrompts) {
  QWidget& window = Open();
  EXPECT_EQ(window.windowTitle(), "Kestrava - Satellite Pass Predictions");
  EXPECT_EQ(Child<QCalendarWidget>(window, "Calendar").selectedDate(), QDate(2026, 11, 15));
  EXPECT_EQ(Text(window, "Groupname"), "Select Satellite Group");
  EXPECT_EQ(Text(window, "SatelliteName"), "Select Satellite");
  EXPECT_EQ(Text(window, "FavouriteName"), "Select Favourite");
  EXPECT_EQ(Child<QComboBox>(window, "Groupname").count(), tables.GroupCount);
  EXPECT_EQ(Child<QComboBox>(window, "FavouriteName").count(), tables.FaveCount);
  EXPECT_EQ(Rows(window), 0);
  EXPECT_FALSE(Status(window).empty());
}

TEST_F(PassWindowTest, TheSectionsAndLabelsAreThere) {
  QWidget& window = Open();
  EXPECT_EQ(Child<QGroupBox>(window, "Frame1").title(), "Instant Prediction");
  EXPECT_EQ(Child<QGroupBox>(window, "Frame2").title(), "Preset Predictions");
  std::set<QString> labels;
  for (const QLabel* label : window.findChildren<QLabel*>()) labels.insert(label->text().remove('&'));
  EXPECT_TRUE(labels.count("Select A Satellite..."));
  EXPECT_TRUE(labels.count("...Or Select a Favourite"));
  EXPECT_EQ(Child<QCheckBox>(window, "CHvisOnly").text().remove('&'), "Visible Passes Only");
  const QAbstractItemModel& rows = *Child<QTableView>(window, "LISTpasses").model();
  Strings heads;
  for (int i = 0; i < rows.columnCount(); ++i)
    heads.push_back(rows.headerData(i, Qt::Horizontal, Qt::DisplayRole).toString().toStdString());
  EXPECT_EQ(heads, (Strings{"Satellite", "Date", "Time", "Start AZ", "Max Elevation", "Duration", "End Az", "Sunlit",
                            "Visible"}));
  for (const int column : {kSunlitCell, kVisibleCell})
    EXPECT_FALSE(rows.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
}

TEST_F(PassWindowTest, TheMnemonicsAreAllDifferentAndEveryControlIsReachedByTheTabKey) {
  QWidget& window = Open();
  std::set<QChar> letters;
  const auto take = [&](QString text) {
    const qsizetype at = text.indexOf('&');
    if (at < 0) return;
    EXPECT_TRUE(letters.insert(text.at(at + 1).toLower()).second) << text.toStdString();
  };
  for (const auto* button : window.findChildren<QAbstractButton*>()) take(button->text());
  for (const auto* label : window.findChildren<QLabel*>()) take(label->text());
  std::set<QString> reached;
  QWidget* at = window.focusWidget();
  for (int i = 0; i < 60 && at; ++i, at = at->nextInFocusChain()) {
    if (at->focusPolicy() & Qt::TabFocus) reached.insert(at->objectName());
  }
  for (const char* name : {"Groupname", "SatelliteName", "FavouriteName", "CHvisOnly", "BUTcalc", "ListPresets",
                           "PresetGo", "PresetAdd", "BUTeditjob", "PresetDelete", "LISTpasses", "BUTsortChron",
                           "BUTclearResults", "BUTsaveresults", "BUTprint", "BUTmin", "BUTexit", "BUTstop"})
    EXPECT_TRUE(reached.count(name)) << name;
}

TEST_F(PassWindowTest, ASatelliteOfAGroupIsWorkedOut) {
  QWidget& window = Open();
  Choose(window, "Groupname", "Space Stations");
  EXPECT_GT(Child<QComboBox>(window, "SatelliteName").count(), 3);
  EXPECT_EQ(Text(window, "SatelliteName"), "Select Satellite") << "the text stays until one is chosen";
  Choose(window, "SatelliteName", "ISS (ZARYA)");
  EXPECT_EQ(window.focusWidget()->objectName(), "BUTcalc");
  Click(window, "BUTcalc");
  ASSERT_GT(Rows(window), 2);
  EXPECT_EQ(Cell(window, 0, kSatelliteCell), "ISS (ZARYA)");
  EXPECT_EQ(Text(window, "Groupname"), "Select Satellite Group");
  EXPECT_EQ(Text(window, "SatelliteName"), "Select a Satellite");
  EXPECT_EQ(Text(window, "FavouriteName"), "Select a Favourite");
  EXPECT_EQ(Status(window), std::to_string(Rows(window)) + " passes of ISS (ZARYA) on 15 NOV 2026.");
}

TEST_F(PassWindowTest, CursorKeysStepThroughSatellitesAndReturnChooses) {
  QWidget& window = Open();
  window.activateWindow();
  Choose(window, "Groupname", "Space Stations");
  auto& satellites = Child<QComboBox>(window, "SatelliteName");
  satellites.setFocus();
  HandleEvents();
  PressKey(satellites, Qt::Key_Down);
  PressKey(satellites, Qt::Key_Down);
  EXPECT_EQ(satellites.currentIndex(), 1);
  EXPECT_EQ(window.focusWidget(), &satellites) << "a step is no choice";
  PressKey(satellites, Qt::Key_Return);
  EXPECT_EQ(window.focusWidget()->objectName(), "BUTcalc");
  EXPECT_EQ(Rows(window), 0) << "that Return has chosen";
  PressKey(*window.focusWidget(), Qt::Key_Return);
  EXPECT_GT(Rows(window), 0);
}

TEST_F(PassWindowTest, TheTabKeyGoesOnFromASatelliteThatWasSteppedTo) {
  QWidget& window = Open();
  window.activateWindow();
  Choose(window, "Groupname", "Space Stations");
  auto& satellites = Child<QComboBox>(window, "SatelliteName");
  satellites.setFocus();
  HandleEvents();
  PressKey(satellites, Qt::Key_Down);
  PressKey(satellites, Qt::Key_Tab);
  HandleEvents();
  EXPECT_EQ(window.focusWidget()->objectName(), "FavouriteName");
  EXPECT_EQ(Text(window, "SatelliteName"), "ISS (ZARYA)");
}

TEST_F(PassWindowTest, AGroupThatWasSteppedToIsListedWhenItIsChosenOrLeft) {
  QWidget& window = Open();
  window.activateWindow();
  auto& groups = Child<QComboBox>(window, "Groupname");
  auto& satellites = Child<QComboBox>(window, "SatelliteName");
  groups.setFocus();
  HandleEvents();
  PressKey(groups, Qt::Key_Down);
  EXPECT_EQ(groups.currentIndex(), 0);
  EXPECT_EQ(satellites.count(), 0) << "each step would read a file";
  PressKey(groups, Qt::Key_Return);
  const int ofTheFirst = satellites.count();
  EXPECT_GT(ofTheFirst, 0);
  EXPECT_EQ(Rows(window), 0);
  PressKey(groups, Qt::Key_Down);
  EXPECT_EQ(satellites.count(), ofTheFirst);
  eventLoop.RunEvent([&] {
    QTest::keyClick(&groups, Qt::Key_Tab);
    HandleEvents();
  });
  EXPECT_EQ(window.focusWidget(), &satellites);
  EXPECT_NE(satellites.count(), ofTheFirst);
}

TEST_F(PassWindowTest, AgainTakesTheLastSatelliteForTheDayOfTheCalendar) {
  QWidget& window = Open();
  auto& again = Child<QAbstractButton>(window, "BUTagain");
  EXPECT_FALSE(again.isEnabled());
  Calculate(window, "NOAA 19", 16);
  const int first = Rows(window);
  EXPECT_TRUE(again.isEnabled());
  EXPECT_NE(again.toolTip().indexOf("NOAA 19"), -1);
  PickDay(window, 2026, 11, 17);
  Click(window, "BUTagain");
  ASSERT_GT(Rows(window), first);
  EXPECT_EQ(Cell(window, first, kSatelliteCell), "NOAA 19");
  EXPECT_EQ(Cell(window, first, kDateCell), "17 NOV 2026");
  EXPECT_EQ(Status(window), std::to_string(Rows(window) - first) + " passes of NOAA 19 on 17 NOV 2026, " +
                                std::to_string(Rows(window)) + " rows in the list.");
}

TEST_F(PassWindowTest, TheTooltipsOfTheButtonsSayWhatIsMissing) {
  Put("pass.dat", "Week\r\nISS (ZARYA);\r\n1\r\n0\r\n0\r\n");
  QWidget& window = Open();
  const auto tip = [&](const char* button) { return Child<QWidget>(window, button).toolTip().toStdString(); };
  EXPECT_TRUE(tip("BUTcalc").ends_with(". Choose a satellite first")) << tip("BUTcalc");
  for (const char* button : {"PresetGo", "BUTeditjob", "PresetDelete"})
    EXPECT_TRUE(tip(button).ends_with(". Select a job first")) << tip(button);
  for (const char* button : {"BUTsortChron", "BUTclearResults", "BUTsaveresults", "BUTprint"}) {
    EXPECT_TRUE(tip(button).ends_with(". The list is empty")) << tip(button);
    EXPECT_TRUE(Child<QWidget>(window, button).isEnabled()) << "they work all the same";
  }
  Select(window, "ListPresets", 0);
  Choose(window, "FavouriteName", "NOAA 19");
  EXPECT_EQ(tip("PresetGo"), "Runs the selected job from the day of the calendar on");
  EXPECT_EQ(tip("BUTcalc"), "Adds the passes of the chosen day to the list (Return)");
  Click(window, "BUTcalc");
  EXPECT_EQ(tip("BUTprint"), "Prints the list");
  EXPECT_TRUE(tip("BUTcalc").ends_with(". Choose a satellite first")) << "each calculation empties the choosers";
}

TEST_F(PassWindowTest, ThePickedDayIsTheDayOfTheRows) {
  QWidget& window = Open();
  PickDay(window, 2026, 11, 17);
  EXPECT_EQ(window.focusWidget()->objectName(), "BUTcalc");
  Choose(window, "FavouriteName", "NOAA 19");
  Click(window, "BUTcalc");
  ASSERT_GT(Rows(window), 0);
  for (int row = 0; row < Rows(window); ++row) EXPECT_EQ(Cell(window, row, kDateCell), "17 NOV 2026");
}

TEST_F(PassWindowTest, ReturnCalculatesWhereverTheFocusIs) {
  QWidget& window = Open();
  Choose(window, "FavouriteName", "NOAA 19");
  PressKey(Child<QWidget>(window, "FavouriteName"), Qt::Key_Return);
  const int rows = Rows(window);
  EXPECT_GT(rows, 0);
  Choose(window, "FavouriteName", "NOAA 19");
  PressKey(Child<QWidget>(window, "LISTpasses"), Qt::Key_Return);
  EXPECT_EQ(Rows(window), 2 * rows) << "rows pile up";
}

TEST_F(PassWindowTest, WithoutAChoiceItSaysWhatToChoose) {
  QWidget& window = Open();
  messages.ExpectMessage("You must select either one of the ");
  Click(window, "BUTcalc");
  EXPECT_EQ(Rows(window), 0);
}

TEST_F(PassWindowTest, VisibleOnlyListsOnlyVisibleOnes) {
  QWidget& window = Open();
  Child<QCheckBox>(window, "CHvisOnly").click();
  Calculate(window, "ISS", 16);
  for (int row = 0; row < Rows(window); ++row) EXPECT_EQ(Cell(window, row, kVisibleCell), "Yes");
  EXPECT_NE(Status(window).find("cannot be seen by eye"), std::string::npos) << Status(window);
}

TEST_F(PassWindowTest, NoPassesAreToldInTheStatusLine) {
  QWidget& window = Open();
  settings.Set("WxEL", "91");
  Calculate(window, "NOAA 19", 16);
  EXPECT_EQ(Rows(window), 0);
  EXPECT_EQ(Status(window).find("No passes"), 0U) << Status(window);
}

TEST_F(PassWindowTest, TheSortShowsItsProgressAndHidesTheListMeanwhile) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 18);
  Calculate(window, "ISS", 16);
  const int rows = Rows(window);
  EXPECT_EQ(Cell(window, 0, kDateCell), "18 NOV 2026");
  auto& list = Child<QTableView>(window, "LISTpasses");
  auto& bar = Child<QProgressBar>(window, "PROsorting");
  bool seen = false;
  eventLoop.AtYield(1, [&] {
    seen = true;
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(bar.maximum(), rows);
    EXPECT_TRUE(Child<QWidget>(window, "BUTstop").isEnabled());
  });
  Click(window, "BUTsortChron");
  EXPECT_TRUE(seen);
  EXPECT_TRUE(list.isVisible());
  EXPECT_EQ(bar.value(), rows);
  EXPECT_EQ(Cell(window, 0, kDateCell), "16 NOV 2026");
  EXPECT_EQ(Cell(window, rows - 1, kDateCell), "18 NOV 2026");
  EXPECT_FALSE(Child<QWidget>(window, "BUTstop").isEnabled());
  Calculate(window, "NOAA 19", 16);
  EXPECT_LT(bar.value(), 0) << "the bar of a sort is no news any more";
}

TEST_F(PassWindowTest, WhatComesInIsBroughtIntoSight) {
  QWidget& window = Open();
  window.resize(900, 480);
  for (const int day : {15, 16, 17, 18}) Calculate(window, "OSCAR 7", day);
  const int first = Rows(window);
  Calculate(window, "OSCAR 7", 15);
  auto& list = Child<QTableView>(window, "LISTpasses");
  EXPECT_EQ(list.rowAt(1), first) << "on top";
  EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(first, 0)))) << first;
}

TEST_F(PassWindowTest, ClearEmptiesTheList) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 16);
  ASSERT_GT(Rows(window), 0);
  Click(window, "BUTclearResults");
  EXPECT_EQ(Rows(window), 0);
}

TEST_F(PassWindowTest, RowsThatComeInLeaveTheSelection) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 16);
  Child<QTableView>(window, "LISTpasses").selectRow(0);
  Calculate(window, "ISS", 16);
  EXPECT_EQ(SelectedRows(window), 1);
  Click(window, "BUTsortChron");
  EXPECT_EQ(SelectedRows(window), 0) << "other rows stand there now";
}

TEST_F(PassWindowTest, SelectedRowsAreCopiedAsText) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 16);
  QWidget& list = Child<QWidget>(window, "LISTpasses");
  QGuiApplication::clipboard()->setText("left alone");
  PressKey(list, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "left alone");
  Child<QTableView>(window, "LISTpasses").selectRow(0);
  PressKey(list, Qt::Key_C, Qt::ControlModifier);
  const QStringList cells = QGuiApplication::clipboard()->text().trimmed().split('\t');
  ASSERT_EQ(cells.size(), static_cast<int>(kPassCells));
  EXPECT_EQ(cells[0], "NOAA 19");
  EXPECT_EQ(cells[1], "16 NOV 2026");
}

TEST_F(PassWindowTest, ColumnsAreAsWideAsTheirContent) {
  QWidget& window = Open();
  Calculate(window, "OSCAR 7", 16);
  auto& list = Child<QTableView>(window, "LISTpasses");
  for (int column = 0; column < list.model()->columnCount(); ++column) {
    for (int row = 0; row < list.model()->rowCount(); ++row) {
      const int needed = list.fontMetrics().horizontalAdvance(list.model()->index(row, column).data().toString());
      EXPECT_GT(list.columnWidth(column), needed) << row << ", " << column;
    }
    EXPECT_GE(list.columnWidth(column), list.horizontalHeader()->sectionSizeHint(column)) << column;
  }
}

TEST_F(PassWindowTest, SaveWritesWhatTheDialogChose) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 16);
  fileChooser.ExpectSave("/documents/week.txt");
  messages.ExpectMessage("Predictions saved as /documents/week.txt");
  Click(window, "BUTsaveresults");
  EXPECT_EQ(fileChooser.titles, Strings{"Save Predicted results to file"});
  EXPECT_EQ(fileChooser.suggestions.front(), "/documents/Kestrava.txt");
  const Strings lines = platform::SplitLines(files.Content("/documents/week.txt"));
  ASSERT_GT(lines.size(), 3U);
  EXPECT_EQ(lines[0].find("Created by Kestrava"), 0U);
  EXPECT_EQ(lines[2], std::string(kPassHeading));
  EXPECT_EQ(lines[3].find("NOAA 19             16 NOV 2026"), 0U) << lines[3];
}

TEST_F(PassWindowTest, ACancelledSaveWritesTheDefaultNameIntoTheDocuments) {
  QWidget& window = Open();
  fileChooser.ExpectSave(std::nullopt);
  messages.ExpectMessage("Predictions saved as /documents/Kestrava.txt");
  Click(window, "BUTsaveresults");
  EXPECT_FALSE(files.Content("/documents/Kestrava.txt").empty());
}

TEST_F(PassWindowTest, AFolderThatCannotBeWrittenIsSaid) {
  QWidget& window = Open();
  files.BreakFile("/documents/week.txt", platform::Fault::PermissionDenied());
  fileChooser.ExpectSave("/documents/week.txt");
  messages.ExpectMessage("could not be saved as /documents/week.txt: Permission denied");
  Click(window, "BUTsaveresults");
  files.Mend();
  EXPECT_FALSE(files.Exists("/documents/week.txt"));
}

TEST_F(PassWindowTest, PrintHandsTheDocumentToThePrinter) {
  QWidget& window = Open();
  Calculate(window, "NOAA 19", 16);
  printing.ExpectDialog();
  Click(window, "BUTprint");
  ASSERT_EQ(printing.printed.size(), 1U);
  const platform::PrintDocument& document = printing.printed.front();
  EXPECT_EQ(document.font, "Lucida Console");
  ASSERT_EQ(document.lines.size(), 3U + static_cast<std::size_t>(Rows(window)));
  EXPECT_EQ(document.lines[0].text.find("Satellite Pass Predictions Generated by Kestrava"), 0U);
  EXPECT_EQ(document.lines[1].text, "");
  EXPECT_EQ(document.lines[2].text, std::string(kPassHeading));
  EXPECT_EQ(document.lines[2].colour, 0xFA0000U);
  EXPECT_EQ(document.lines[3].colour, platform::kBlack);
}

TEST_F(PassWindowTest, WithoutAPrinterTheStatusLineSaysSo) {
  QWidget& window = Open();
  printing.hasPrinter = false;
  printing.ExpectDialog();
  Click(window, "BUTprint");
  EXPECT_EQ(Status(window).find("No printer was found"), 0U);
}

TEST_F(PassWindowTest, ACancelledPrinterDialogSaysWhereTheListWent) {
  QWidget& window = Open();
  printing.isChosen = false;
  printing.ExpectDialog();
  Click(window, "BUTprint");
  EXPECT_EQ(Status(window), "The printer dialog was cancelled: the list went to the default printer.");
  printing.hasPrinter = false;
  printing.ExpectDialog();
  Click(window, "BUTprint");
  EXPECT_NE(Status(window).find("there is no default printer, so nothing was printed"), std::string::npos);
}

TEST_F(PassWindowTest, AWindowThatIsClosedWhileADialogStandsWritesNothing) {
  QWidget& window = Open();
  fileChooser.ExpectSave("/documents/late.txt", [&] { window.close(); });
  Click(window, "BUTsaveresults");
  EXPECT_FALSE(IsOpen(kPassWindow));
  EXPECT_FALSE(files.Exists("/documents/late.txt"));
}

TEST_F(PassWindowTest, StopEndsTheReadingOfAGroup) {
  QWidget& window = Open();
  eventLoop.AtYield(30, [&] {
    EXPECT_TRUE(Child<QWidget>(window, "BUTstop").isEnabled());
    Child<QAbstractButton>(window, "BUTstop").click();
  });
  Choose(window, "Groupname", "Amateur Radio");
  const int stoppedAt = Child<QComboBox>(window, "SatelliteName").count();
  Choose(window, "Groupname", "Amateur Radio");
  EXPECT_LT(stoppedAt, Child<QComboBox>(window, "SatelliteName").count());
  EXPECT_FALSE(Child<QWidget>(window, "BUTstop").isEnabled());
}

TEST_F(PassWindowTest, ExitInTheMidstOfAReadingEndsIt) {
  QWidget& window = Open();
  eventLoop.AtYield(30, [&] { Child<QAbstractButton>(window, "BUTexit").click(); });
  Choose(window, "Groupname", "Amateur Radio");
  HandleEvents();
  EXPECT_FALSE(IsOpen(kPassWindow));
}

TEST_F(PassWindowTest, MinimiseAndExitDoAsTheySay) {
  QWidget& window = Open();
  Click(window, "BUTmin");
  EXPECT_TRUE(window.isMinimized());
  window.showNormal();
  Click(window, "BUTexit");
  EXPECT_FALSE(IsOpen(kPassWindow));
}

}  // namespace
}  // namespace kestrava::predict::ui
