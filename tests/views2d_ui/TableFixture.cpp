#include "TableFixture.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Fault.h"

namespace kestrava::views2d::ui {

namespace {

bool StaysUp(const std::string& satellite, platform::SerialDate from) {
  try {
    for (int day = 0; day <= 7; ++day) orbit::Engine->PlaceOf(satellite, from + day);
    return true;
  } catch (const platform::Fault&) {
    return false;
  }
}

}  // namespace

TableFixture::TableFixture() {
  windows->Register(kTableViewName, [] { return MakeTableView(); });
  orbit::Engine->SetObserverLongitude(359.9985);  // as the launcher hands it over
}

QWidget& TableFixture::OpenTable() {
  windows->Show(kTableViewName);
  HandleEvents();
  return dynamic_cast<QWidget&>(*windows->Find(kTableViewName));
}

QString TableFixture::Cell(QWidget& table, int row, int column) {
  const QAbstractItemModel& shown = *List(table).model();
  return shown.index(row, column).data().toString();
}

QColor TableFixture::ColourOf(QWidget& table, int row) {
  return List(table).model()->index(row, kName).data(Qt::ForegroundRole).value<QColor>();
}

int TableFixture::RowOf(QWidget& table, const QString& satellite) {
  return static_cast<int>(Names(table).indexOf(satellite));
}

QString TableFixture::LabelText(QWidget& table, const char* name) {
  return Child<QLabel>(table, name).text();
}

QStringList TableFixture::Names(QWidget& table) {
  QStringList names;
  for (int row = 0; row < List(table).model()->rowCount(); ++row) names << Cell(table, row, kName);
  return names;
}

void TableFixture::ClickHead(QWidget& table, int column) {
  QHeaderView& heads = *List(table).horizontalHeader();
  ClickAt(*heads.viewport(), {heads.sectionViewportPosition(column) + 20, heads.height() / 2});
  HandleEvents();
}

void TableFixture::ClickRow(QWidget& table, int row, Qt::KeyboardModifiers modifiers) {
  QTableView& list = List(table);
  QWidget& area = *list.viewport();
  const QPoint at = list.visualRect(list.model()->index(row, kName)).center();
  const QPointF global = area.mapToGlobal(at);
  eventLoop.RunEvent([&] {
    QMouseEvent down(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton, modifiers);
    QApplication::sendEvent(&area, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton, modifiers);
    QApplication::sendEvent(&area, &up);
  });
  HandleEvents();
}

void TableFixture::FillFavourites(int count) {
  const QString names = QString::fromStdString(orbit::Engine->SatelliteNames());
  tables.FaveCount = 0;
  for (const QString& name : names.mid(1, names.size() - 2).split("\",\"")) {
    if (tables.FaveCount == count) break;
    const std::string fave = name.left(15).trimmed().toStdString();
    if (StaysUp(fave, clock.Read().utc)) tables.FaveList[static_cast<std::size_t>(++tables.FaveCount)].Name = fave;
  }
}

}  // namespace kestrava::views2d::ui
