// The pass window and the job wizard with their real controls over the engine, with the data that a new user gets, in a
// scripted house. The station stands at Greenwich, the clock at 18:20 UTC of 15 November 2026, a day after the
// elements' epochs.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTableView>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

#include "orbit/Tables.h"
#include "platform/qt/ChoiceWidgets.h"
#include "predict/PassTable.h"

#include "support/House.h"

namespace kestrava::predict::ui {

class PassFixture : public testing::House {
 protected:
  PassFixture();
  ~PassFixture() override;

  /// Shows the pass window, or the wizard by itself, through the registry.
  QWidget& Open();
  QWidget& OpenWizard();
  bool IsOpen(std::string_view name) { return windows->Find(name) != nullptr; }
  /// The toolkit's own events: layout, repaints, queued calls.
  static void HandleEvents();

  template <class Control>
  static Control& Child(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(name);
    if (!control) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  /// A click of the left button in the middle of a control.
  void Click(QWidget& window, const char* name);
  void PressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Type(QWidget& window, const char* name, const char* text);
  /// What a user does who opens a combo and takes an entry.
  void Choose(QWidget& window, const char* combo, const char* entry);
  /// Selects a row of a list box.
  void Select(QWidget& window, const char* list, int row);
  void PickDay(QWidget& window, int year, int month, int day);
  void CloseByUser(QWidget& window);

  static std::string Text(QWidget& window, const char* combo) {
    return Child<platform::qt::ComboList>(window, combo).Text();
  }
  static std::string Status(QWidget& window) { return Child<QLabel>(window, "IPstatus").text().toStdString(); }
  static std::string Cell(QWidget& window, int row, PassColumn column);
  static int Rows(QWidget& window) { return Child<QTableView>(window, "LISTpasses").model()->rowCount(); }
  static std::vector<std::string> Jobs(QWidget& window, const char* list = "ListPresets");
  /// Works out a favourite's passes of a day.
  void Calculate(QWidget& window, const char* favourite, int day);

  orbit::Tables& tables = orbit::TheTables();
};

}  // namespace kestrava::predict::ui
