// The locations window with its real controls, found by their object names, in a scripted house. The station stands at
// "Home", 51.5 north, 0.25 west, 30 m; two other places are in the file, of which the first is on the map.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Tables.h"
#include "station/Hub.h"

#include "support/House.h"

namespace kestrava::panels::ui {

class LocationsFixture : public testing::House {
 protected:
  LocationsFixture();
  ~LocationsFixture() override;

  /// Shows the window through the registry.
  QWidget& Open(std::string_view file = "1Cape Town;341.58;-33.5;-2\n0Quito;78.5;-0.25;2850\n");
  void CloseByUser();
  QWidget& Window() { return *window_; }

  template <class Control>
  Control& Child(const char* name) {
    auto* control = window_->findChild<Control*>(name);
    if (!control) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QLineEdit& Box(const char* name) { return Child<QLineEdit>(name); }
  std::string Text(const char* name) { return Box(name).text().toStdString(); }
  std::string Label(const char* name) { return Child<QLabel>(name).text().toStdString(); }
  bool Ticked(const char* name) { return Child<QCheckBox>(name).isChecked(); }
  QListWidget& List() { return Child<QListWidget>("ListLocations"); }

  /// What a user does who marks a box's text and types.
  void Type(const char* name, const char* text);
  void Press(const char* button);
  /// A click on a tick box, where that changes it.
  void SetTick(const char* name, bool ticked);
  void ChooseRow(int row);
  /// A click on the tick box of a row.
  void TickRow(int row);
  void Key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  /// Name, place on the decimal page, and its signs.
  void TypeDecimals(const char* name, const char* latitude, bool north, const char* longitude, bool west);

  /// "51 30 0 / 0 15 0"
  std::string Parts();
  /// "51.5 N 0.25 W"; the sign boxes of both pages must agree.
  std::string Decimals();
  std::vector<std::string> Rows();
  std::vector<std::string> TickedRows();
  std::string Primary();
  /// Everything that is stored.
  std::string Stored() { return Primary() + "|" + Content("Locations.dat"); }

  struct ActivationsHub : station::Hub {
    void RunActivation() override { ++activations; }
    int activations = 0;
  } hub;

 private:
  QWidget* window_ = nullptr;
};

}  // namespace kestrava::panels::ui
