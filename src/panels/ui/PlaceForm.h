// The fields of one place: search box, name, height, and its co-ordinates on two pages, of which one is shown. The
// line below them says in plain words what they mean.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <array>
#include <map>
#include <utility>

#include "panels/LocationsPanel.h"
#include "panels/ui/CitySearch.h"

#include "PanelWidgets.h"

class QGridLayout;

namespace kestrava::panels::ui {

class PlaceForm : public QGroupBox {
  Q_OBJECT

 public:
  explicit PlaceForm(QWidget* parent = nullptr);

  QLineEdit& Box(PlaceBox box) const { return *boxes_.at(static_cast<std::size_t>(box)); }
  TickBox& Tick(PlacePage page, PlaceTick tick) const { return *ticks_.at({page, tick}); }
  void ShowPage(PlacePage page) { pages_->setCurrentIndex(static_cast<int>(page)); }
  /// The line in plain words. @param wrong  it tells of a box that holds no number
  void ShowWords(const QString& words, bool wrong);
  /// All controls as the eye meets them.
  std::vector<QWidget*> InOrder() const;

  CitySearch* city = nullptr;    ///< Tcity
  QLabel* cityAnswer = nullptr;  ///< LAcity
  TickBox* decimals = nullptr;   ///< CHdecDeg

 signals:
  /// The user has changed the text of a box.
  void Edited();
  /// The user has clicked one of the four sign boxes.
  void SignClicked(kestrava::panels::PlacePage page, kestrava::panels::PlaceTick tick);

 private:
  void BuildTop(QGridLayout& grid);
  QWidget* BuildParts();
  QWidget* BuildDecimals();
  static QString HintOf(PlaceBox box);
  QLineEdit* MakeBox(PlaceBox box, const QString& name, QWidget* parent);
  void AddUnit(QGridLayout& grid, int row, int column, PlaceBox box, const QString& unit);
  void AddSign(QGridLayout& grid, int row, int column, PlacePage page, PlaceTick tick);

  std::array<QLineEdit*, kPlaceBoxes> boxes_{};
  std::map<std::pair<PlacePage, PlaceTick>, TickBox*> ticks_;
  QStackedWidget* pages_ = nullptr;
  QLabel* words_ = nullptr;
};

}  // namespace kestrava::panels::ui
