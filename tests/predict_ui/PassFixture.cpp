#include "PassFixture.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTest>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"
#include "predict/ui/PassWindows.h"
#include "store/Favourites.h"
#include "store/Groups.h"

#include "support/StationFiles.h"

namespace kestrava::predict::ui {

PassFixture::PassFixture() {
  clock.SetUtc({2026, 11, 15, 18, 20, 0});
  for (const auto& [name, content] : testing::StationFiles()) {
    if (!name.ends_with(".jpg")) Put(name, content);
  }
  files.MakeFolder("/documents");
  settings.Set("Latitude", "51.4779");
  settings.Set("Longitude", "0.0015");
  settings.Set("Skin", "1");
  orbit::Engine = std::make_unique<orbit::OrbitEngine>();
  orbit::Engine->SetDataFolder(platform::AppDir);
  orbit::Engine->SetObserverLatitude(51.4779);
  orbit::Engine->SetObserverLongitude(-0.0015);
  store::LoadGroups(tables);
  store::LoadFaves(tables, *orbit::Engine);
  platform::qt::ApplyTheme(true);
  windows->Register(kPassWindow, [] { return MakePassPredictionWindow(); });
  windows->Register(kWizardWindow, [] { return MakePassWizardWindow(); });
}

PassFixture::~PassFixture() {
  while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
  eventLoop.RunEvent([] {});
  orbit::Engine.reset();
  platform::qt::ApplyTheme(false);
}

QWidget& PassFixture::Open() {
  windows->Show(kPassWindow);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(kPassWindow));
}

QWidget& PassFixture::OpenWizard() {
  windows->Show(kWizardWindow);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(kWizardWindow));
}

void PassFixture::HandleEvents() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

void PassFixture::Click(QWidget& window, const char* name) {
  auto& control = Child<QWidget>(window, name);
  eventLoop.RunEvent([&] { QTest::mouseClick(&control, Qt::LeftButton); });
}

void PassFixture::PressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  eventLoop.RunEvent([&] { QTest::keyClick(&widget, key, modifiers); });
}

void PassFixture::Type(QWidget& window, const char* name, const char* text) {
  auto& field = Child<QLineEdit>(window, name);
  eventLoop.RunEvent([&] { QTest::keyClicks(&field, text); });
}

void PassFixture::Choose(QWidget& window, const char* combo, const char* entry) {
  auto& list = Child<QComboBox>(window, combo);
  const int row = list.findText(entry, Qt::MatchStartsWith);
  if (row < 0) throw std::runtime_error(std::string(combo) + " has no entry " + entry);
  eventLoop.RunEvent([&] {
    list.setCurrentIndex(row);
    emit list.activated(row);
  });
}

void PassFixture::Select(QWidget& window, const char* list, int row) {
  Child<QListWidget>(window, list).setCurrentRow(row);
}

void PassFixture::PickDay(QWidget& window, int year, int month, int day) {
  auto& calendar = Child<QCalendarWidget>(window, "Calendar");
  const QDate date(year, month, day);
  calendar.setSelectedDate(date);
  eventLoop.RunEvent([&] { emit calendar.clicked(date); });
}

void PassFixture::CloseByUser(QWidget& window) {
  eventLoop.RunEvent([&] { window.close(); });
  HandleEvents();
}

std::string PassFixture::Cell(QWidget& window, int row, PassColumn column) {
  const QAbstractItemModel& rows = *Child<QTableView>(window, "LISTpasses").model();
  return platform::qt::FromQt(rows.index(row, static_cast<int>(column)).data().toString());
}

std::vector<std::string> PassFixture::Jobs(QWidget& window, const char* list) {
  std::vector<std::string> rows;
  const auto& box = Child<platform::qt::ListBox>(window, list);
  for (int row = 0; row < box.Count(); ++row) rows.push_back(box.Row(row));
  return rows;
}

void PassFixture::Calculate(QWidget& window, const char* favourite, int day) {
  PickDay(window, 2026, 11, day);
  Choose(window, "FavouriteName", favourite);
  Click(window, "BUTcalc");
}

}  // namespace kestrava::predict::ui
