#include "MapFixture.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "store/Favourites.h"
#include "store/Locations.h"
#include "views2d/MapGeometry.h"

#include "support/StationFiles.h"

// What the toolkit's own tests send a key with: shortcuts are looked for first.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text = QString(),
                                               bool autoRepeat = false, ushort count = 1);
QT_END_NAMESPACE

namespace kestrava::views2d::ui {

MapFixture::MapFixture() {
  clock.SetUtc({2026, 11, 15, 18, 20, 0});
  for (const auto& [name, content] : testing::StationFiles()) Put(name, content);
  settings.Set("Latitude", "51.4779");
  settings.Set("Longitude", "0.0015");
  settings.Set("Skin", "1");
  orbit::Engine = std::make_unique<orbit::OrbitEngine>();
  orbit::Engine->SetDataFolder(platform::AppDir);
  orbit::Engine->SetObserverLatitude(51.4779);
  orbit::Engine->SetObserverLongitude(-0.0015);
  store::LoadFaves(tables, *orbit::Engine);
  store::LoadLocations(tables);
  tables.LocationName = "Greenwich";
  platform::qt::ApplyTheme(true);
  windows->Register(kWorldViewName, [] { return MakeWorldView(); });
}

MapFixture::~MapFixture() {
  while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
  eventLoop.RunEvent([] {});
  orbit::Engine.reset();
  platform::qt::ApplyTheme(false);
}

QWidget& MapFixture::Open(std::string_view mapMode) {
  windows->Show(kWorldViewName, mapMode);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(kWorldViewName));
}

QWidget& MapFixture::OpenAnother(std::string_view mapMode) {
  windows->ShowNew(kWorldViewName, mapMode);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Loaded().back().second);
}

void MapFixture::HandleEvents() {
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

void MapFixture::Run(double seconds) {
  eventLoop.Advance(seconds);
  HandleEvents();
}

void MapFixture::Resize(QWidget& map, int width, int height) {
  map.resize(width, height);
  HandleEvents();
}

QString MapFixture::Text(QWidget& map, int remoteStat) {
  return Child<QLabel>(map, platform::qt::ArrayName("RemoteStat", remoteStat)).text();
}

void MapFixture::Click(QWidget& control) {
  ClickAt(control, control.rect().center());
}

void MapFixture::ClickAt(QWidget& control, QPoint at, Qt::MouseButton button) {
  const QPointF global = control.mapToGlobal(at);
  eventLoop.RunEvent([&] {
    QMouseEvent down(QEvent::MouseButtonPress, at, global, button, button, Qt::NoModifier);
    QApplication::sendEvent(&control, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &up);
  });
}

void MapFixture::PressKey(QWidget& map, int key, Qt::KeyboardModifiers modifiers) {
  QWidget* target = map.focusWidget() ? map.focusWidget() : &map;
  eventLoop.RunEvent([&] {
    if (qt_sendShortcutOverrideEvent(target, 0, key, modifiers)) return;
    QKeyEvent down(QEvent::KeyPress, key, modifiers);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(target, &down);
    QApplication::sendEvent(target, &up);
  });
}

void MapFixture::CloseByUser(QWidget& map) {
  eventLoop.RunEvent([&] { map.close(); });
  HandleEvents();
}

QPoint MapFixture::PlaceOf(QWidget& map, int favourite, const char* mapMode) {
  const QWidget& canvas = Child<QWidget>(map, "Final");
  const orbit::FaveRec& row = orbit::TheTables().FaveList[static_cast<std::size_t>(favourite)];
  return {qRound(LonToX(row.Lon, canvas.width(), mapMode)), qRound(LatToY(row.Lat, canvas.height(), mapMode))};
}

}  // namespace kestrava::views2d::ui
