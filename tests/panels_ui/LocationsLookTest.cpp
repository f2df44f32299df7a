// The looks of the locations window. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a folder; what can
// be checked by rule is: nothing is cut off at any size, and texts stand out in both looks.
#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include "panels/ui/CitySearch.h"
#include "platform/qt/Theme.h"

#include "LocationsFixture.h"
#include "LongWords.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

constexpr double kLegible = 4.5;

class LocationsLook : public LocationsFixture {
 protected:
  QWidget& OpenIn(bool skin) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
    return Open(
        "1Cape Town;341.58;-33.5;-2\n0Quito;78.5;-0.25;2850\n1Neumayer-Station III, Antarktis;8.2741667;-70.6667;43\n");
  }
  void Shot(const std::string& name) {
    testing::HandleEvents();
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(Window(), ("locations-" + name + "-x" + scale).c_str());
  }
  void MovePointer(QPointF onMap) {
    auto& map = Child<QWidget>("PlaceMap");
    QMouseEvent move(QEvent::MouseMove, onMap, map.mapToGlobal(onMap), Qt::NoButton, Qt::NoButton, {});
    eventLoop.RunEvent([&] { QCoreApplication::sendEvent(&map, &move); });
  }
  /// Every button and box is as wide as its text, and lies within its parent.
  void ExpectNothingCutOff() {
    for (const auto* button : Window().findChildren<QAbstractButton*>()) {
      if (button->objectName().isEmpty() || !button->isVisible()) continue;
      EXPECT_GE(button->width() + 2, button->sizeHint().width()) << button->objectName().toStdString();
      EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry())) << button->objectName().toStdString();
    }
    for (const auto* label : Window().findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_GE(label->height(), needed) << label->text().toStdString();
      EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width()) << label->text().toStdString();
      EXPECT_TRUE(label->parentWidget()->rect().contains(label->geometry())) << label->text().toStdString();
    }
  }
};

TEST_F(LocationsLook, NothingIsCutOffInBothLooksAndThreeSizes) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    const std::string look = skin ? "skin" : "plain";
    for (const QSize size : {QSize(860, 640), QSize(640, 400), QSize(1500, 1100)}) {
      window.resize(size);
      testing::HandleEvents();
      EXPECT_EQ(window.size(), size);
      ExpectNothingCutOff();
      EXPECT_EQ(Window().findChild<QScrollArea*>()->horizontalScrollBar()->maximum(), 0);
      Shot(look + "-" + std::to_string(size.width()));
    }
    window.resize(860, 640);
    SetTick("CHdecDeg", true);
    ChooseRow(3);
    Type("Tlocation", "Hut on the ice");
    Child<QWidget>("PlaceMap").setFocus();
    MovePointer({100, 60});
    ExpectNothingCutOff();
    Shot(look + "-decimal-edited");
    messages.ExpectUnstored("not stored yet", platform::Unstored::kDiscard);
    CloseByUser();
  }
}

TEST_F(LocationsLook, TextsOfHalfAgainTheLengthAreNotCutOff) {
  const LongWords longWords;
  QWidget& window = OpenIn(true);
  for (const QSize size : {QSize(860, 640), QSize(640, 400)}) {
    window.resize(size);
    testing::HandleEvents();
    ExpectNothingCutOff();
    Shot("long-" + std::to_string(size.width()));
  }
}

TEST_F(LocationsLook, TheHitsOfASearchStandBelowTheBox) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    Type("Tcity", "san");
    testing::HandleEvents();
    auto& search = Child<CitySearch>("Tcity");
    const QWidget& popup = *search.Popup();
    const QPoint below = search.mapToGlobal(QPoint(0, search.height()));
    EXPECT_LE(std::abs(popup.mapToGlobal(QPoint()).y() - below.y()), 3);
    QImage whole = testing::Grab(window);
    QPainter(&whole).drawImage(window.mapFromGlobal(popup.mapToGlobal(QPoint())), testing::Grab(*search.Popup()));
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(whole, (std::string("locations-search-") + (skin ? "skin" : "plain") + "-x" + scale).c_str());
    Key(*search.Popup(), Qt::Key_Escape);
    Type("Tcity", "atlantis");
    Shot(skin ? "skin-none" : "plain-none");
    CloseByUser();
  }
}

TEST_F(LocationsLook, ABoxThatGetsTheKeyboardIsScrolledIntoSight) {
  QWidget& window = OpenIn(true);
  window.resize(640, 400);
  testing::HandleEvents();
  Child<QWidget>("PlaceMap").setFocus();
  testing::HandleEvents();
  Box("tLON1(2)").setFocus();
  testing::HandleEvents();
  auto& area = *Window().findChild<QScrollArea*>();
  const QRect seen(area.viewport()->mapToGlobal(QPoint()), area.viewport()->size());
  EXPECT_TRUE(seen.contains(QRect(Box("tLON1(2)").mapToGlobal(QPoint()), Box("tLON1(2)").size())));
}

TEST_F(LocationsLook, TextsStandOutInBothLooks) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    for (const auto* label : window.findChildren<QLabel*>()) {
      EXPECT_GE(platform::qt::ContrastRatio(label->palette().color(QPalette::WindowText),
                                            label->palette().color(QPalette::Window)),
                kLegible)
          << label->text().toStdString();
    }
    for (const auto* box : window.findChildren<QLineEdit*>()) {
      EXPECT_GE(platform::qt::ContrastRatio(box->palette().color(QPalette::Text), box->palette().color(QPalette::Base)),
                kLegible);
    }
    CloseByUser();
  }
}

}  // namespace
}  // namespace kestrava::panels::ui
