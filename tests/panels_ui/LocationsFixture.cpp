#include "LocationsFixture.h"

#include <QAbstractButton>
#include <QTest>

#include "panels/LocationsPanel.h"
#include "panels/ui/PanelWindows.h"
#include "platform/qt/Theme.h"
#include "store/Places.h"

#include "support_qt/Shots.h"

namespace kestrava::panels::ui {

LocationsFixture::LocationsFixture() {
  orbit::TheTables() = {};
  store::WritePrimaryPlace({"Home", "51.5", "0.25", "30"});
  settings.Set("Skin", "1");
  platform::qt::ApplyTheme(true);
  station::UseHub(&hub);
  windows->Register(kLocationsWindow, [] { return MakeLocationsWindow(); });
}

LocationsFixture::~LocationsFixture() {
  while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
  eventLoop.RunEvent([] {});
  station::UseHub(nullptr);
  platform::qt::ApplyTheme(false);
  orbit::TheTables() = {};
}

QWidget& LocationsFixture::Open(std::string_view file) {
  Put("Locations.dat", file);
  windows->Show(kLocationsWindow);
  window_ = dynamic_cast<QWidget*>(windows->Find(kLocationsWindow));
  testing::HandleEvents();
  return *window_;
}

void LocationsFixture::CloseByUser() {
  eventLoop.RunEvent([&] { window_->close(); });
  testing::HandleEvents();
}

void LocationsFixture::Type(const char* name, const char* text) {
  QLineEdit& box = Box(name);
  box.selectAll();
  eventLoop.RunEvent(
      [&] { *text == '\0' ? QTest::keyClick(&box, Qt::Key_Delete) : QTest::keyClicks(&box, QString::fromUtf8(text)); });
}

void LocationsFixture::Press(const char* button) {
  eventLoop.RunEvent([&] { QTest::mouseClick(&Child<QAbstractButton>(button), Qt::LeftButton); });
}

void LocationsFixture::SetTick(const char* name, bool ticked) {
  auto& box = Child<QCheckBox>(name);
  if (box.isChecked() == ticked) return;
  eventLoop.RunEvent([&] { QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2)); });
}

void LocationsFixture::ChooseRow(int row) {
  QListWidget& list = List();
  const QPoint place = list.visualItemRect(list.item(row)).center();
  eventLoop.RunEvent([&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place); });
}

void LocationsFixture::TickRow(int row) {
  constexpr int kIntoTheBoxPx = 9;
  QListWidget& list = List();
  const QRect place = list.visualItemRect(list.item(row));
  const QPoint box(place.left() + kIntoTheBoxPx, place.center().y());
  eventLoop.RunEvent([&] { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, box); });
}

void LocationsFixture::Key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  eventLoop.RunEvent([&] { QTest::keyClick(&widget, key, modifiers); });
}

void LocationsFixture::TypeDecimals(const char* name, const char* latitude, bool north, const char* longitude,
                                    bool west) {
  SetTick("CHdecDeg", true);
  Type("Tlocation", name);
  Type("tLAT2", latitude);
  Type("TLON2", longitude);
  SetTick("CHns(2)", north);
  SetTick("CHew(2)", west);
}

std::string LocationsFixture::Parts() {
  return Text("tLAT1(0)") + " " + Text("tLAT1(1)") + " " + Text("tLAT1(2)") + " / " + Text("tLON1(0)") + " " +
         Text("tLON1(1)") + " " + Text("tLON1(2)");
}

std::string LocationsFixture::Decimals() {
  EXPECT_EQ(Ticked("CHns(0)"), Ticked("CHns(2)"));
  EXPECT_EQ(Ticked("CHew(0)"), Ticked("CHew(2)"));
  return Text("tLAT2") + (Ticked("CHns(2)") ? " N " : " S ") + Text("TLON2") + (Ticked("CHew(2)") ? " W" : " E");
}

std::vector<std::string> LocationsFixture::Rows() {
  std::vector<std::string> rows;
  for (int row = 0; row < List().count(); ++row) rows.push_back(List().item(row)->text().toStdString());
  return rows;
}

std::vector<std::string> LocationsFixture::TickedRows() {
  std::vector<std::string> rows;
  for (int row = 0; row < List().count(); ++row) {
    if (List().item(row)->checkState() == Qt::Checked) rows.push_back(List().item(row)->text().toStdString());
  }
  return rows;
}

std::string LocationsFixture::Primary() {
  const store::PrimaryPlace place = store::ReadPrimaryPlace();
  return place.name + ";" + place.longitude + ";" + place.latitude + ";" + place.heightM;
}

}  // namespace kestrava::panels::ui
