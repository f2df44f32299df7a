#include "GroupsFixture.h"

#include <QApplication>
#include <QDialog>
#include <QPlainTextEdit>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QTimer>

#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

#include "support/ElementText.h"

namespace kestrava::panels::ui {

using platform::qt::FromQt;

namespace {

/// A catalogue number that differs from name to name.
int NumberOf(const std::string& name) {
  int number = 10000;
  for (const char c : name) number = (number * 31 + c) % 90000;
  return number;
}

}  // namespace

GroupsFixture::GroupsFixture() {
  tables = {};
  Put("amateur.txt", Sets({"AO-07", "AO-73", "ISS (ZARYA)"}));
  Put("mine.txt", Sets({"MY SAT", "AO-73"}));
  Put("satellite.dat", "AO 07\nNOTES  Old and alive\n***\n");
  AddRow("Amateur", "celestrak.org/NORAD/elements/amateur.txt", "0");
  AddRow("Mine", "mine.txt", "1");
  AddRow("Weather", "celestrak.org/NORAD/elements/weather.txt", "0");
  settings.Set("Skin", "1");
  platform::qt::ApplyTheme(true);
  windows->Register(kGroupsWindow, MakeGroupsWindow);
}

GroupsFixture::~GroupsFixture() {
  if (IsOpen()) CloseByLauncher();
  for (std::size_t i = 0; i < boxes_.size(); ++i) ADD_FAILURE() << "an input box that never came";
  platform::qt::ApplyTheme(false);
  tables = {};
}

QWidget& GroupsFixture::Open() {
  eventLoop.RunEvent([this] { windows->Show(kGroupsWindow); });
  HandleEvents();
  window_ = dynamic_cast<QWidget*>(windows->Find(kGroupsWindow));
  if (!window_) throw std::runtime_error("the window did not open");
  return *window_;
}

void GroupsFixture::CloseByUser() {
  RunEvent([this] { window_->close(); });
}

void GroupsFixture::CloseByLauncher() {
  RunEvent([this] { windows->Unload(*windows->Find(kGroupsWindow)); });
}

void GroupsFixture::HandleEvents() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

/// An input box waits in a loop of its own: it is worked from there.
void GroupsFixture::RunEvent(const std::function<void()>& event) {
  QTimer worker;
  QObject::connect(&worker, &QTimer::timeout, &worker, [this] { WorkABox(); });
  worker.start(0);
  eventLoop.RunEvent(event);
  worker.stop();
  HandleEvents();
}

void GroupsFixture::WorkABox() {
  auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (!box || box->property("worked").toBool()) return;
  box->setProperty("worked", true);
  if (boxes_.empty()) {
    ADD_FAILURE() << "an unexpected input box: " << box->windowTitle().toStdString();
    box->reject();
    return;
  }
  const auto work = boxes_.front();
  boxes_.pop_front();
  work(*box);
}

void GroupsFixture::AnswerBox(const char* text) {
  InTheBox([text](QDialog& box) {
    auto* line = box.findChild<QLineEdit*>("InputText");
    line->selectAll();
    QTest::keyClicks(line, text);
    QTest::keyClick(line, Qt::Key_Return);
  });
}

void GroupsFixture::CancelBox() {
  InTheBox([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
}

void GroupsFixture::Click(const char* name) {
  auto& control = Child<QWidget>(name);
  RunEvent([&] { QTest::mouseClick(&control, Qt::LeftButton); });
}

void GroupsFixture::Press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  auto& control = Child<QWidget>(name);
  RunEvent([&] { QTest::keyClick(&control, key, modifiers); });
}

void GroupsFixture::Type(const char* name, const char* text) {
  auto& field = Child<QLineEdit>(name);
  RunEvent([&] { QTest::keyClicks(&field, text); });
}

void GroupsFixture::Choose(const char* combo, const char* entry) {
  auto& list = Child<QComboBox>(combo);
  const int row = list.findText(entry, Qt::MatchStartsWith);
  if (row < 0) throw std::runtime_error(std::string(combo) + " has no entry " + entry);
  RunEvent([&] {
    list.setCurrentIndex(row);
    emit list.activated(row);
  });
}

void GroupsFixture::ClickRow(const char* list, int row) {
  auto& box = Child<QListWidget>(list);
  const QPoint at = box.visualItemRect(box.item(row)).center();
  RunEvent([&] { QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, at); });
}

QPoint GroupsFixture::BoxOf(int row) {
  auto& list = Child<QListWidget>("SatelliteList");
  QStyleOptionViewItem option;
  option.initFrom(&list);
  option.rect = list.visualItemRect(list.item(row));
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  option.viewItemPosition = QStyleOptionViewItem::OnlyOne;
  return list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list).center();
}

void GroupsFixture::ClickBox(int row) {
  auto& list = Child<QListWidget>("SatelliteList");
  RunEvent([&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, BoxOf(row)); });
}

Strings GroupsFixture::Rows(const char* list) {
  const auto& box = Child<platform::qt::ListBox>(list);
  Strings rows;
  for (int row = 0; row < box.Count(); ++row) rows.push_back(box.Row(row));
  return rows;
}

Strings GroupsFixture::Shown() {
  const auto& box = Child<platform::qt::ListBox>("SatelliteList");
  Strings rows;
  for (int row = 0; row < box.Count(); ++row) {
    if (!box.item(row)->isHidden()) rows.push_back(box.Row(row));
  }
  return rows;
}

Strings GroupsFixture::Ticked() {
  const auto& box = Child<platform::qt::ListBox>("SatelliteList");
  Strings rows;
  for (int row = 0; row < box.Count(); ++row) {
    if (box.item(row)->checkState() == Qt::Checked) rows.push_back(box.Row(row));
  }
  return rows;
}

std::string GroupsFixture::Details() {
  return FromQt(Child<QPlainTextEdit>("Details").toPlainText());
}

void GroupsFixture::AddRow(const std::string& name, const std::string& address, const std::string& manual) {
  tables.GroupList.at(static_cast<std::size_t>(++tables.GroupCount)) = {name, address, manual};
}

void GroupsFixture::Favour(const Strings& names) {
  tables.FaveCount = 0;
  for (const std::string& name : names) tables.FaveList.at(static_cast<std::size_t>(++tables.FaveCount)).Name = name;
}

void GroupsFixture::FillFavourites(int count) {
  Strings names;
  for (int i = 1; i <= count; ++i) names.push_back("S" + std::to_string(i));
  Favour(names);
}

Strings GroupsFixture::Favourites() {
  Strings names;
  for (int i = 1; i <= tables.FaveCount; ++i) names.push_back(tables.FaveList.at(static_cast<std::size_t>(i)).Name);
  return names;
}

std::string GroupsFixture::Sets(const Strings& names) {
  std::string text;
  for (const std::string& name : names) text += testing::ElementText(name, NumberOf(name));
  return text;
}

std::string GroupsFixture::ManySets(int count) {
  Strings names;
  for (int i = 1; i <= count; ++i) names.push_back("CLUSTER-" + std::to_string(1000 + i));
  return Sets(names);
}

}  // namespace kestrava::panels::ui
