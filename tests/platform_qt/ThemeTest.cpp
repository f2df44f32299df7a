#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QTabWidget>

#include <gtest/gtest.h>

#include "platform/qt/Fonts.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/TextViewer.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

#include "support/House.h"
#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kLegible = 4.5;

class ThemeTests : public testing::House {
 protected:
  ~ThemeTests() override { ApplyTheme(false); }
};

struct RolePair {
  QPalette::ColorRole text;
  QPalette::ColorRole ground;
};

constexpr RolePair kPairs[] = {
    {QPalette::WindowText, QPalette::Window},         {QPalette::Text, QPalette::Base},
    {QPalette::Text, QPalette::AlternateBase},        {QPalette::ButtonText, QPalette::Button},
    {QPalette::HighlightedText, QPalette::Highlight}, {QPalette::ToolTipText, QPalette::ToolTipBase}};

TEST_F(ThemeTests, TextIsLegibleWithAndWithoutTheSkin) {
  for (const bool skin : {true, false}) {
    ApplyTheme(skin);
    const QPalette palette = QApplication::palette();
    for (const RolePair& pair : kPairs) {
      EXPECT_GE(ContrastRatio(palette.color(pair.text), palette.color(pair.ground)), kLegible)
          << skin << ' ' << pair.text << " on " << pair.ground;
    }
  }
}

TEST_F(ThemeTests, TheSkinsLinksHintsAndAccentsAreLegible) {
  const QPalette palette = DarkPalette();
  for (const QPalette::ColorRole role : {QPalette::Link, QPalette::LinkVisited, QPalette::PlaceholderText}) {
    EXPECT_GE(ContrastRatio(palette.color(role), palette.color(QPalette::Base)), kLegible) << role;
  }
  EXPECT_GE(ContrastRatio(Tones().accent, Tones().window), kLegible);
  EXPECT_GE(ContrastRatio(Tones().accent, Tones().base), kLegible);
}

TEST_F(ThemeTests, TheSkinsAccentsAreItsNumbers) {
  EXPECT_EQ(Tones().text.rgb(), ToRgb(0xDDDDDD));
  EXPECT_EQ(Tones().accent.rgb(), ToRgb(0x00CFD6));
  EXPECT_EQ(Tones().faint.rgb(), ToRgb(0x808080));
}

TEST_F(ThemeTests, AMenuHasAnEdgeAndASeparatorThatCanBeSeen) {
  ApplyTheme(true);
  QMenu menu;
  menu.addAction("Copy");
  const QAction* separator = menu.addSeparator();
  menu.addAction("Select All");
  menu.resize(menu.sizeHint());
  const QImage picture = menu.grab().toImage().scaled(menu.size());
  const QPoint middle = menu.actionGeometry(const_cast<QAction*>(separator)).center();
  EXPECT_EQ(picture.pixelColor(middle).name(), Tones().raised.name());
  EXPECT_EQ(picture.pixelColor(0, menu.height() / 2).name(), Tones().edge.name());
  EXPECT_EQ(picture.pixelColor(menu.width() - 1, menu.height() / 2).name(), Tones().edge.name());
  EXPECT_EQ(picture.pixelColor(menu.width() / 2, 0).name(), Tones().edge.name());
  EXPECT_EQ(picture.pixelColor(menu.width() / 2, menu.height() - 1).name(), Tones().edge.name());
}

TEST_F(ThemeTests, AMenuEntryThatCannotBeChosenIsWrittenOnce) {
  ApplyTheme(true);
  QMenu menu;
  menu.addAction("Locations")->setEnabled(false);
  menu.resize(menu.sizeHint());
  const QImage picture = menu.grab().toImage();
  const QRect inside = picture.rect().adjusted(2, 2, -2, -2);
  int written = 0;
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    for (int x = inside.left(); x <= inside.right(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      if (pixel.red() > Tones().edge.red()) ++written;
      EXPECT_LT(pixel.blue() - pixel.red(), 16) << x << ',' << y;  // the shadow's tone is bluer than ground and text
    }
  }
  EXPECT_GT(written, 50);
}

TEST_F(ThemeTests, InkOnAnyBackColourIsLegible) {
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 15) {
        const QColor back(red, green, blue);
        EXPECT_GE(ContrastRatio(ReadableOn(back), back), kLegible) << back.name().toStdString();
      }
    }
  }
}

TEST_F(ThemeTests, ContrastFollowsThePublishedRule) {
  EXPECT_DOUBLE_EQ(ContrastRatio(Qt::black, Qt::white), 21.0);
  EXPECT_DOUBLE_EQ(ContrastRatio(Qt::white, Qt::white), 1.0);
  EXPECT_NEAR(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST_F(ThemeTests, TheSettingDecidesAndMayChangeAtAnyTime) {
  ApplyTheme(false);
  const QPalette plain = QApplication::palette();
  const QString style = QApplication::style()->name();
  settings.Set("Skin", "1");
  ApplyThemeFromSettings();
  EXPECT_TRUE(SkinIsOn());
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), Tones().window);
  settings.Set("Skin", "0");
  ApplyThemeFromSettings();
  EXPECT_FALSE(SkinIsOn());
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), plain.color(QPalette::Window));
  EXPECT_EQ(QApplication::style()->name(), style);
}

TEST_F(ThemeTests, FacesAreTakenByKindWhateverIsInstalled) {
  for (const char* name : {"Small fonts", "SMALL FONTS", "Arial", "Lucida Console", "No such face"}) {
    for (const bool bold : {false, true}) {
      const QFontInfo taken(FontByName(name, 8, bold));
      EXPECT_TRUE(taken.family().startsWith("Kestrava ")) << name << " is " << taken.family().toStdString();
      EXPECT_EQ(taken.bold(), bold) << name;
    }
  }
  EXPECT_EQ(QFontInfo(FontByName("Small fonts", 8, false)).family(), "Kestrava Narrow");
  EXPECT_TRUE(QFontInfo(FontByName("Lucida Console", 8, false)).fixedPitch());
  EXPECT_TRUE(QFontInfo(InterfaceFont()).family().startsWith("Kestrava "));
  EXPECT_EQ(FontByName("No such face", 9, false).family(), InterfaceFont().family());
  EXPECT_EQ(FontByName("Arial", 9, false).pixelSize(), 12);
  EXPECT_EQ(FontForScale("Arial", 9, false, 1.5).pixelSize(), 18);
  EXPECT_TRUE(FontByName("Arial", 8, true).bold());
}

/// All kinds of controls in one window, for the eye.
void SaveGallery(bool skin, const char* name) {
  ApplyTheme(skin);
  QWidget window;
  auto* grid = new QGridLayout(&window);
  auto* bar = new QMenuBar;
  bar->addMenu("&Satellite");
  bar->addMenu("&Options");
  grid->setMenuBar(bar);
  grid->addWidget(new QLabel("Keplerian Elements Last Updated 3 Days Ago"), 0, 0, 1, 2);
  auto* led = new LedClockWidget;
  led->SetValue(MakeSerial({2024, 6, 1, 12, 34, 56}));
  led->ShowGivenTime(true);
  grid->addWidget(led, 1, 0);
  auto* realtime = new SkinButton("Realtime");
  realtime->SetBackColour(kChosenBack);
  auto* warp = new SkinButton("TimeWarp");
  warp->SetBackColour(kOtherBack);
  grid->addWidget(realtime, 2, 0);
  grid->addWidget(warp, 2, 1);
  auto* off = new SkinButton("Pass Predictions");
  off->setEnabled(false);
  auto* help = new SkinButton("Help");
  grid->addWidget(help, 3, 0);
  grid->addWidget(off, 3, 1);
  grid->addWidget(new QSlider(Qt::Horizontal), 4, 0);
  auto* chosen = new QCheckBox("Show the ground track");
  chosen->setChecked(true);
  grid->addWidget(chosen, 4, 1);
  auto* combo = new QComboBox;
  combo->addItem("Default");
  grid->addWidget(combo, 5, 0);
  grid->addWidget(new QLineEdit("51.5"), 5, 1);
  grid->addWidget(new QPushButton("OK"), 6, 0);
  grid->addWidget(new QPlainTextEdit("No Information available\n"), 7, 0);
  auto* list = new ListWidget({"dot", "Satellite", "AOS", "LOS"});
  list->AddRow({"SATELLITE", "AOS", "LOS"});
  for (int i = 0; i < 5; ++i)
    list->AddRow({"NOAA " + std::to_string(15 + i), i == 0 ? "NOW" : "12:0" + std::to_string(i), "12:15"});
  list->setCurrentItem(list->topLevelItem(2));
  grid->addWidget(list, 7, 1);
  window.resize(520, 520);
  window.show();
  window.activateWindow();
  testing::HandleEvents();
  help->setFocus();
  testing::SaveShot(window, name);
  EXPECT_TRUE(help->hasFocus());
}

TEST_F(ThemeTests, MenusAndPagesTakeTheTheme) {
  ApplyTheme(true);
  QMenu menu;
  menu.addAction("-Select a Satellite-");
  menu.addAction("ISS (ZARYA)")->setCheckable(true);
  menu.actions().last()->setChecked(true);
  menu.addSeparator();
  menu.addAction("Speech")->setEnabled(false);
  menu.setActiveAction(menu.actions().at(1));
  testing::SaveShot(menu, "menu");
  files.Replace("/house/faq.html", "<h1>Kestrava</h1><p>Help</p><h2 id='map'>The map</h2><p><a href='#map'>Up</a></p>");
  TextViewer viewer;
  viewer.ShowFile("/house/faq.html");
  testing::SaveShot(viewer, "viewer");
  for (QWidget* widget : {static_cast<QWidget*>(&menu), static_cast<QWidget*>(&viewer)}) {
    EXPECT_LT(qGray(testing::Grab(*widget).pixel(widget->width() / 2, widget->height() - 5)), 80);
  }
}

TEST_F(ThemeTests, AllControlsStandTogetherInBothLooks) {
  SaveGallery(true, "gallery-skin");
  SaveGallery(false, "gallery-plain");
}

}  // namespace
}  // namespace kestrava::platform::qt
