#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScreen>
#include <QVBoxLayout>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/WindowSizes.h"
#include "platform/qt/KeptSize.h"
#include "platform/qt/QtSkin.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"
#include "platform/qt/Theme.h"

#include "support/House.h"
#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

class TrialWindow : public StationWindow {
 public:
  explicit TrialWindow(std::string_view name = "Trial") : StationWindow(name) {
    setWindowTitle("Trial");
    resize(300, 200);
  }
  void OnUnload() override {
    StationWindow::OnUnload();
    ++unloads;
  }
  void Skin() { ApplySkin(); }

  int activations = 0;
  int unloads = 0;
  bool mayClose = true;
  bool fails = false;

 protected:
  void OnActivated() override {
    ++activations;
    if (fails) throw Fault::FileNotFound();
  }
  bool MayClose() override { return mayClose; }
};

class StationWindowTests : public testing::House {
 protected:
  ~StationWindowTests() override { ApplyTheme(false); }
  TrialWindow& Open(std::string_view name) {
    windows->Register(name, [name] { return std::make_unique<TrialWindow>(name); });
    windows->Show(name);
    testing::HandleEvents();
    return dynamic_cast<TrialWindow&>(*windows->Find(name));
  }
};

TEST_F(StationWindowTests, ARealActivationCountsOnce) {
  const TrialWindow& window = Open("A");
  EXPECT_EQ(window.activations, 1);
  eventLoop.Advance(2);
  EXPECT_EQ(window.activations, 1);
}

void Press(QWidget& receiver, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(&receiver, &press);
}

/// A control that has a use of its own for Escape.
class TakesEscape : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void keyPressEvent(QKeyEvent* event) override { event->accept(); }
};

TEST_F(StationWindowTests, EscapeStopsTheVoiceFromTheWindowAndFromItsControls) {
  settings.Set("Speechpack", "1");
  TrialWindow window;
  Press(window, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 1);
  QLineEdit field(&window);
  Press(field, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 2);
  SkinButton button("Go", &window);
  Press(button, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 3);
}

TEST_F(StationWindowTests, EscapeThatAControlHasAUseForDoesNotStopTheVoice) {
  settings.Set("Speechpack", "1");
  TrialWindow window;
  TakesEscape control(&window);
  Press(control, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 0);
}

TEST_F(StationWindowTests, OtherKeysAndEscapeWithAModifierLeaveTheVoiceAlone) {
  settings.Set("Speechpack", "1");
  TrialWindow window;
  Press(window, Qt::Key_Space);
  Press(window, Qt::Key_Escape, Qt::ControlModifier);
  EXPECT_EQ(speech.stops, 0);
}

TEST_F(StationWindowTests, EscapeDoesNotTouchTheEngineWhileSpeechIsOff) {
  TrialWindow window;
  Press(window, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 0);
}

TEST_F(StationWindowTests, AWindowThatFilledTheScreenFillsItAgainWhenItComesBack) {
  TrialWindow window;
  window.Show();
  window.showMaximized();
  window.showMinimized();
  testing::HandleEvents();
  ASSERT_TRUE(window.isMinimized());
  window.Show();
  testing::HandleEvents();
  EXPECT_FALSE(window.isMinimized());
  EXPECT_TRUE(window.isMaximized());
  window.showNormal();
  window.showMinimized();
  window.Show();
  EXPECT_FALSE(window.isMinimized() || window.isMaximized());
}

TEST_F(StationWindowTests, AWindowOpensInTheSizeThatTheUserGaveItLast) {
  Open("A").resize(420, 330);
  windows->Unload(*windows->Find("A"));
  EXPECT_EQ(KeptWindowSize("A"), (WindowSize{420, 330, false}));
  EXPECT_EQ(Open("A").size(), QSize(420, 330));
  EXPECT_EQ(Open("B").size(), QSize(300, 200)) << "another one has its own";
  windows->Unload(*windows->Find("B"));
  EXPECT_FALSE(KeptWindowSize("B").has_value()) << "nothing is kept that the user has not changed";
}

TEST_F(StationWindowTests, AWindowThatFilledTheScreenAtItsEndOpensSoAndKeepsItsNormalSize) {
  Open("A").resize(420, 330);
  testing::HandleEvents();
  windows->Find("A")->Show();
  dynamic_cast<TrialWindow*>(windows->Find("A"))->showMaximized();
  testing::HandleEvents();
  windows->Unload(*windows->Find("A"));
  EXPECT_EQ(KeptWindowSize("A"), (WindowSize{420, 330, true}));
  EXPECT_TRUE(Open("A").isMaximized());
  Open("A").showNormal();
  testing::HandleEvents();
  EXPECT_EQ(Open("A").size(), QSize(420, 330));
}

TEST_F(StationWindowTests, ASizeLargerThanTheScreenIsCutToIt) {
  KeepWindowSize("A", {9000, 120, false});
  TrialWindow& window = Open("A");
  EXPECT_EQ(window.size(), QSize(window.screen()->availableSize().width(), 120));
}

TEST_F(StationWindowTests, WindowsOfOneSizeAndThoseWithSettingsOfTheirOwnKeepNone) {
  KeepWindowSize("A", {420, 330, false});
  KeepWindowSize("B", {420, 330, false});
  windows->Register("A", [] {
    auto window = std::make_unique<TrialWindow>("A");
    window->setFixedSize(300, 200);
    return window;
  });
  windows->Register("B", [] {
    auto window = std::make_unique<TrialWindow>("B");
    window->setProperty(kPlaceInSettingsProperty, true);
    return window;
  });
  for (const char* name : {"A", "B"}) {
    windows->Show(name);
    auto& window = dynamic_cast<TrialWindow&>(*windows->Find(name));
    EXPECT_EQ(window.size(), QSize(300, 200)) << name;
    window.resize(310, 210);
    windows->Unload(window);
    EXPECT_EQ(KeptWindowSize(name), (WindowSize{420, 330, false})) << name;
  }
}

TEST_F(StationWindowTests, ShownButNotToldCountsAsActivatedOnceAfterHalfASecond) {
  TrialWindow window;
  window.Show();  // no events are handled: nobody tells it
  eventLoop.Advance(0.4);
  EXPECT_EQ(window.activations, 0);
  eventLoop.Advance(0.2);
  EXPECT_EQ(window.activations, 1);
  eventLoop.Advance(5);
  EXPECT_EQ(window.activations, 1);
}

TEST_F(StationWindowTests, HiddenBeforeHalfASecondIsNotActivated) {
  TrialWindow window;
  window.Show();
  window.Hide();
  eventLoop.Advance(2);
  EXPECT_EQ(window.activations, 0);
}

TEST_F(StationWindowTests, ComingBackFromAnotherWindowCounts) {
  TrialWindow& first = Open("A");
  Open("B");
  first.activateWindow();
  testing::HandleEvents();
  EXPECT_EQ(first.activations, 2);
}

TEST_F(StationWindowTests, ComingBackFromAnOwnMessageBoxDoesNotCount) {
  TrialWindow& window = Open("A");
  QMessageBox box(QMessageBox::Information, "Kestrava", "Read this", QMessageBox::Ok, &window);
  box.open();
  testing::HandleEvents();
  ASSERT_EQ(QApplication::activeWindow(), &box);
  box.close();
  window.activateWindow();  // as a window manager does
  testing::HandleEvents();
  ASSERT_EQ(QApplication::activeWindow(), &window);
  EXPECT_EQ(window.activations, 1);
}

TEST_F(StationWindowTests, ComingBackFromAnOwnMenuDoesNotCount) {
  TrialWindow& window = Open("A");
  QMenu menu(&window);
  menu.addAction("Entry");
  menu.popup(QPoint(10, 10));
  testing::HandleEvents();
  menu.close();
  testing::HandleEvents();
  EXPECT_EQ(window.activations, 1);
}

TEST_F(StationWindowTests, ABoxThatWasLeftForAnotherWindowIsForgotten) {
  TrialWindow& first = Open("A");
  QMessageBox box(QMessageBox::Information, "Kestrava", "Read this", QMessageBox::Ok, &first);
  box.setModal(false);
  box.show();
  testing::HandleEvents();
  Open("B");
  box.close();
  first.activateWindow();
  testing::HandleEvents();
  EXPECT_EQ(first.activations, 2);
}

TEST_F(StationWindowTests, AFaultInTheActivationIsShownAndTheWindowStays) {
  messages.ExpectMessage("File not found");
  TrialWindow window;
  window.fails = true;
  window.Show();
  testing::HandleEvents();
  EXPECT_TRUE(window.IsVisible());
}

TEST_F(StationWindowTests, CloseUnloadsThroughTheRegistry) {
  TrialWindow& window = Open("A");
  eventLoop.RunEvent([&] {
    window.close();
    EXPECT_EQ(windows->Find("A"), nullptr);
    EXPECT_FALSE(window.IsVisible());
    EXPECT_EQ(window.unloads, 1);
  });
  EXPECT_TRUE(windows->Loaded().empty());
}

TEST_F(StationWindowTests, TheDesktopsKeyForClosingClosesUnlessTheWindowForbidsIt) {
  TrialWindow& staying = Open("Staying");
  staying.mayClose = false;
  Press(staying, Qt::Key_W, Qt::ControlModifier);
  EXPECT_NE(windows->Find("Staying"), nullptr);
  staying.mayClose = true;
  Press(staying, Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(windows->Find("Staying"), nullptr);
}

TEST_F(StationWindowTests, AWindowThatMayNotCloseStaysLoaded) {
  TrialWindow& window = Open("A");
  window.mayClose = false;
  EXPECT_FALSE(window.close());
  EXPECT_EQ(windows->Find("A"), &window);
  EXPECT_TRUE(window.IsVisible());
}

TEST_F(StationWindowTests, AnUnloadFromOutsideDoesNotAskAgain) {
  TrialWindow& window = Open("A");
  window.mayClose = false;
  eventLoop.RunEvent([&] {
    window.Unload();
    EXPECT_EQ(window.unloads, 1);
    EXPECT_FALSE(window.IsVisible());
  });
  EXPECT_EQ(windows->Find("A"), nullptr);
}

TEST_F(StationWindowTests, UnloadedInItsOwnActivationItIsNotToldAgain) {
  TrialWindow& window = Open("A");
  eventLoop.RunEvent([&] {
    window.Unload();
    eventLoop.Advance(1);
    EXPECT_EQ(window.activations, 1);
  });
}

TEST_F(StationWindowTests, ItsNameIsItsObjectName) {
  EXPECT_EQ(Open("frmLAUNCHER").objectName(), "frmLAUNCHER");
}

TEST_F(StationWindowTests, ThePlaceIsReadAndWrittenInTheSameSense) {
  TrialWindow window;
  const TwipsPlace place{1500, 3000, 6000, 4500};
  window.SetPlace(place);
  EXPECT_EQ(window.Place(), place);
  EXPECT_EQ(window.geometry(), QRect(100, 200, 400, 300));
  window.Show();
  testing::HandleEvents();
  EXPECT_EQ(window.Place(), place);
}

TEST_F(StationWindowTests, APlaceOffAllScreensIsMovedOntoOne) {
  TrialWindow window;
  for (const TwipsPlace& stray : {TwipsPlace{-90000, 300, 6000, 4500}, TwipsPlace{2147483647, 2147483647, 6000, 4500},
                                  TwipsPlace{-2147483647 - 1, -2147483647 - 1, 6000, 4500}}) {
    window.SetPlace(stray);
    EXPECT_TRUE(QRect(0, 0, 1600, 1200).contains(window.geometry())) << stray.left;
    EXPECT_EQ(window.Place().width, 6000);
  }
}

TEST_F(StationWindowTests, APlaceOfNoSizeOrOfAllTooGreatOneIsBroughtIntoBounds) {
  TrialWindow window;
  window.SetPlace({300, 300, -50, 0});
  EXPECT_GE(window.width(), 1);
  window.SetPlace({300, 300, 2147483647, 2147483647});
  EXPECT_LE(window.width(), 16383);
}

TEST_F(StationWindowTests, APlacePartlyOnAScreenStays) {
  EXPECT_EQ(OntoAScreen({-150, 20, 200, 100}, {{0, 0, 800, 600}}), QRect(-150, 20, 200, 100));
  EXPECT_EQ(OntoAScreen({900, 20, 200, 100}, {{0, 0, 800, 600}, {800, 0, 800, 600}}), QRect(900, 20, 200, 100));
  EXPECT_EQ(OntoAScreen({900, 20, 200, 100}, {{0, 0, 800, 600}}), QRect(600, 20, 200, 100));
}

TEST_F(StationWindowTests, TwipsRoundToTheNearestPixel) {
  EXPECT_EQ(TwipsToPixels(12195), 813);
  EXPECT_EQ(TwipsToPixels(-22), -1);
  EXPECT_EQ(TwipsToPixels(22), 1);
  EXPECT_EQ(TwipsToPixels(23), 2);
  EXPECT_EQ(PixelsToTwips(813), 12195);
}

TEST_F(StationWindowTests, TheSkinDrawsAtTheEdgesBehindTheControls) {
  ApplyTheme(true);
  TrialWindow window;
  auto* layout = new QVBoxLayout(&window);
  layout->addWidget(new QLabel("Sunrise/Set : 05:12 / 21:32"));
  layout->addWidget(new SkinButton("2D View"));
  window.Skin();
  const QImage picture = testing::Grab(window);
  testing::SaveShot(picture, "skinned-window");
  EXPECT_NE(picture.pixel(1, 1), picture.pixel(150, 100));
  EXPECT_LT(qGray(picture.pixel(150, 199 - 30)), 60);
  EXPECT_EQ(window.palette().color(QPalette::Window), Tones().window);
}

TEST_F(StationWindowTests, WithoutTheSkinNoLookChanges) {
  settings.Set("Skin", "0");
  TrialWindow window;
  const QImage before = testing::Grab(window);
  window.Skin();
  EXPECT_EQ(testing::Grab(window), before);
}

TEST_F(StationWindowTests, ASkinnedWindowMayBeNarrowerThanTheFramesCorners) {
  ApplyTheme(true);
  TrialWindow window;
  window.resize(161, 542);
  window.Skin();
  testing::SaveShot(window, "skinned-narrow");
  window.resize(1, 1);
  testing::Grab(window);
}

}  // namespace
}  // namespace kestrava::platform::qt
