#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/TextViewer.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

#include "support/House.h"
#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

class WidgetTests : public testing::House {
 protected:
  ~WidgetTests() override { ApplyTheme(false); }
  void Press(QWidget& widget, int key) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &down);
    QApplication::sendEvent(&widget, &up);
  }
};

TEST_F(WidgetTests, TheClockRunsByItselfOnLocalTime) {
  clock.SetOffsetHours(2);
  const LedClockWidget led;
  EXPECT_EQ(led.Text(), "14:00:00");
  eventLoop.Advance(61);
  EXPECT_EQ(led.Text(), "14:01:01");
}

TEST_F(WidgetTests, TheClockShowsASecondUntilTheNextOneBegins) {
  clock.SetOffsetHours(2);
  clock.SetUtc(MakeSerial({2024, 6, 1, 21, 59, 59}) + 0.9 / kSecondsPerDay);
  LedClockWidget led;
  EXPECT_EQ(led.Text(), "23:59:59");
  led.ShowUniversalTime(true);
  EXPECT_EQ(led.Text(), "21:59:59");
}

TEST_F(WidgetTests, TheClockShowsUniversalTimeWhenTold) {
  clock.SetOffsetHours(2);
  LedClockWidget led;
  led.ShowUniversalTime(true);
  EXPECT_EQ(led.Text(), "12:00:00");
  led.ShowUniversalTime(false);
  EXPECT_EQ(led.Text(), "14:00:00");
}

TEST_F(WidgetTests, TheClockShowsAGivenTimeAndStandsStillOnIt) {
  LedClockWidget led;
  led.SetValue(MakeSerial({2024, 1, 2, 3, 4, 5}));
  EXPECT_EQ(led.Text(), "12:00:00");
  led.ShowGivenTime(true);
  EXPECT_EQ(led.Text(), "03:04:05");
  eventLoop.Advance(30);
  EXPECT_EQ(led.Text(), "03:04:05");
  led.SetValue(MakeSerial({2024, 1, 2, 23, 59, 59}));
  EXPECT_EQ(led.Text(), "23:59:59");
  led.ShowGivenTime(false);
  EXPECT_EQ(led.Text(), "12:00:30");
}

TEST_F(WidgetTests, TheClockKnowsItsVisibilityBeforeItsWindowIsShown) {
  QWidget window;
  LedClockWidget led(&window);
  EXPECT_TRUE(led.IsClockVisible());
  led.SetClockVisible(false);
  EXPECT_FALSE(led.IsClockVisible());
  led.SetClockVisible(true);
  EXPECT_TRUE(led.IsClockVisible());
}

TEST_F(WidgetTests, TheClockGlowsOnBlackAndEachDigitHasItsOwnPicture) {
  LedClockWidget led;
  led.resize(150, 40);
  led.ShowGivenTime(true);
  QList<QImage> pictures;
  for (int digit = 0; digit < 10; ++digit) {
    led.SetValue(MakeSerial({2024, 1, 1, 0, 0, digit}));
    const QImage picture = testing::Grab(led);
    EXPECT_FALSE(pictures.contains(picture)) << digit;
    EXPECT_EQ(picture.pixel(0, 0), 0xff000000u);
    pictures << picture;
  }
  led.SetValue(MakeSerial({2024, 1, 1, 12, 34, 56}));
  led.resize(300, 80);
  testing::SaveShot(led, "led-clock");
}

TEST_F(WidgetTests, AButtonTakesABackColourAndGivesItBack) {
  SkinButton button("Realtime");
  button.SetBackColour(kChosenBack);
  EXPECT_EQ(button.BackColour(), kChosenBack);
  button.SetBackColour(kOtherBack);
  EXPECT_EQ(button.BackColour(), kOtherBack);
  button.ResetBackColour();
  EXPECT_EQ(button.BackColour(), FromRgb(button.palette().color(QPalette::Button).rgb()));
}

TEST_F(WidgetTests, AButtonIsPressedBySpaceAndReturn) {
  SkinButton button("Settings");
  int clicks = 0;
  QObject::connect(&button, &QAbstractButton::clicked, [&] { ++clicks; });
  Press(button, Qt::Key_Space);
  Press(button, Qt::Key_Return);
  Press(button, Qt::Key_Enter);
  EXPECT_EQ(clicks, 3);
  button.setEnabled(false);
  Press(button, Qt::Key_Return);
  EXPECT_EQ(clicks, 3);
}

TEST_F(WidgetTests, AButtonSaysWhatItIs) {
  const SkinButton button("Settings");
  EXPECT_EQ(button.accessibleName(), "Settings");
  EXPECT_EQ(button.focusPolicy(), Qt::StrongFocus);
}

TEST_F(WidgetTests, AButtonsFocusCanBeSeen) {
  for (const bool skin : {true, false}) {
    ApplyTheme(skin);
    QWidget window;
    QVBoxLayout layout(&window);
    SkinButton first("One");
    SkinButton second("Two");
    layout.addWidget(&first);
    layout.addWidget(&second);
    window.show();
    window.activateWindow();
    testing::HandleEvents();
    second.setFocus();
    const QImage without = testing::Grab(first);
    first.setFocus();
    EXPECT_NE(testing::Grab(first), without) << skin;
  }
}

TEST_F(WidgetTests, TheListFillsColumnsFromTheSecondOn) {
  ListWidget list({"dot", "Satellite", "AOS", "LOS"});
  list.AddRow({"SATELLITE", "AOS", "LOS"});
  list.AddRow({"ISS", "NOW", "12:34"});
  EXPECT_EQ(list.RowCount(), 2);
  EXPECT_EQ(list.Text(0, 1), "SATELLITE");
  EXPECT_EQ(list.Text(1, 0), "");
  EXPECT_EQ(list.Text(1, 3), "12:34");
  EXPECT_EQ(list.Text(2, 1), "");
  list.Clear();
  EXPECT_EQ(list.RowCount(), 0);
}

TEST_F(WidgetTests, NamesOfArrayMembersCarryTheirIndex) {
  EXPECT_EQ(ArrayName("BUTmenu", 5), "BUTmenu(5)");
  QWidget widget;
  Named(&widget, ArrayName("BUTmenu", 14), "Help");
  EXPECT_EQ(widget.objectName(), "BUTmenu(14)");
  EXPECT_EQ(widget.accessibleName(), "Help");
}

TEST_F(WidgetTests, TheIdlePictureStaysAsItWasGiven) {
  ImageSurface picture(40, 30);
  picture.Clear(kGreen);
  SurfaceWidget map;
  map.resize(40, 30);
  map.SetIdlePicture(picture.Image());
  picture.Clear(kRed);
  EXPECT_EQ(testing::Grab(map).pixelColor(20, 15), QColor(Qt::green));
}

TEST_F(WidgetTests, APictureIsShownOnlyWhenThePaintIsWhole) {
  SurfaceWidget map;
  map.resize(60, 40);
  EXPECT_TRUE(map.FitToWidget());
  map.Back().Clear(kRed);
  EXPECT_EQ(testing::Grab(map).pixel(30, 20), 0xff000000u);
  map.Present();
  EXPECT_EQ(testing::Grab(map).pixel(30, 20), ToRgb(kRed));
  map.Back().Clear(kBlue);
  EXPECT_EQ(testing::Grab(map).pixel(30, 20), ToRgb(kRed));
  map.Present();
  EXPECT_EQ(testing::Grab(map).pixel(30, 20), ToRgb(kBlue));
}

TEST_F(WidgetTests, WhileBeingResizedTheLastPictureStandsScaled) {
  SurfaceWidget map;
  map.resize(60, 40);
  map.FitToWidget();
  map.Back().Clear(kRed);
  map.Present();
  map.resize(120, 90);
  EXPECT_EQ(testing::Grab(map).pixel(115, 85), ToRgb(kRed));
  EXPECT_EQ(map.Back().Width(), 60);
  EXPECT_EQ(map.ToSurface({60, 45}), QPointF(30, 20));
  EXPECT_TRUE(map.FitToWidget());
  EXPECT_FALSE(map.FitToWidget());
  EXPECT_EQ(map.Back().Width(), 120);
  EXPECT_EQ(testing::Grab(map).pixel(115, 85), ToRgb(kRed));
}

TEST_F(WidgetTests, APressTellsItsPlaceOnTheSurface) {
  SurfaceWidget map;
  map.resize(100, 50);
  map.FitToWidget();
  QPointF place;
  Qt::MouseButton button = Qt::NoButton;
  QObject::connect(&map, &SurfaceWidget::Pressed, [&](QPointF at, Qt::MouseButton with) {
    place = at;
    button = with;
  });
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(20, 30), QPointF(20, 30), Qt::RightButton, Qt::RightButton,
                    Qt::NoModifier);
  QApplication::sendEvent(&map, &press);
  EXPECT_EQ(place, QPointF(20, 30));
  EXPECT_EQ(button, Qt::RightButton);
}

TEST_F(WidgetTests, TheViewerShowsAPageATextAndAMissingFile) {
  files.Replace("/house/faq.html", "<h1>Kestrava</h1><p>The map</p>");
  files.Replace("/house/history.txt", "2.0.2 <first>");
  TextViewer viewer;
  EXPECT_TRUE(viewer.ShowFile("/house/faq.html"));
  const auto text = [&] { return viewer.findChild<QWidget*>("IPtext")->property("plainText").toString(); };
  EXPECT_EQ(text(), "Kestrava\nThe map");
  EXPECT_TRUE(viewer.ShowFile("/house/history.txt"));
  EXPECT_EQ(text(), "2.0.2 <first>");
  EXPECT_FALSE(viewer.ShowFile("/house/none.txt"));
  EXPECT_TRUE(text().contains("/house/none.txt")) << FromQt(text());
  EXPECT_TRUE(text().contains("File not found")) << FromQt(text());
}

TEST_F(WidgetTests, TheViewerFollowsALinkWithinThePageAndHandsOthersOver) {
  std::string page = "<p><a href='#map'>The map</a></p>";
  for (int i = 0; i < 200; ++i) page += "<p>line</p>";
  files.Replace("/house/faq.html", page + "<h2 id='map'>The map</h2>");
  TextViewer viewer;
  viewer.ShowFile("/house/faq.html");
  viewer.Show();
  auto* text = viewer.findChild<QTextBrowser*>("IPtext");
  ASSERT_EQ(text->verticalScrollBar()->value(), 0);
  emit text->anchorClicked(QUrl("#map"));
  EXPECT_GT(text->verticalScrollBar()->value(), 100);
  emit text->anchorClicked(QUrl("https://example.org/"));
  EXPECT_EQ(opener.opened, std::vector<std::string>{"https://example.org/"});
}

class FailingWidget : public QWidget {
 protected:
  void customEvent(QEvent*) override { throw Fault::Overflow(); }
};

TEST_F(WidgetTests, AFaultThatLeavesAHandlerIsToldAndNothingEnds) {
  messages.ExpectMessage("Overflow");
  FailingWidget widget;
  widget.setObjectName("IPtext");
  QEvent own(QEvent::User);
  QApplication::sendEvent(&widget, &own);
  EXPECT_NE(messages.Texts().back().find("IPtext"), std::string::npos);
}

}  // namespace
}  // namespace kestrava::platform::qt
