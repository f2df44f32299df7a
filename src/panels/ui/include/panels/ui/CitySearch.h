// The search box over the list of world cities: while the user types, the best hits drop down below it; an arrow key
// and Return, or a click, choose one. Return without more chooses the first. Stands in the locations window.
#pragma once

#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>
#include <vector>

#include "store/Cities.h"

namespace kestrava::panels::ui {

/// The shipped list, read when it is first asked for.
const std::vector<store::City>& ShippedCities();

class CitySearch : public QLineEdit {
  Q_OBJECT

 public:
  explicit CitySearch(QWidget* parent = nullptr);

  /// Searches another list than the shipped one. @param cities  outlives this object
  void UseCities(const std::vector<store::City>& cities) { cities_ = &cities; }
  /// The texts of the hits, best first.
  QStringList Hits() const { return model_.stringList(); }
  QAbstractItemView* Popup() const { return completer_->popup(); }

 signals:
  /// The user has chosen a city. It lives as long as the program.
  void Chosen(const kestrava::store::City& city);
  /// The user has typed something. @param found  hits there are; -1 for an empty box
  void Searched(int found);

 private:
  void Search(const QString& typed);
  void Choose(int hit);

  const std::vector<store::City>* cities_ = nullptr;  ///< null for the shipped ones, not read before they are needed
  QStringListModel model_;
  QCompleter* completer_;
  std::vector<const store::City*> hits_;
};

}  // namespace kestrava::panels::ui
