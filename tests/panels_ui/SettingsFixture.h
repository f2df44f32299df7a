// The main and the 2D settings panel with their real controls, in a scripted house.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QSlider>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/House.h"

namespace kestrava::panels::ui {

class SettingsFixture : public testing::House {
 protected:
  /// @param devices  recorder and rotor window are registered, as their settings need them
  explicit SettingsFixture(bool devices = true);
  ~SettingsFixture() override;

  /// Shows a panel through the registry.
  QWidget& Open(std::string_view name);
  QWidget& OpenMain();
  QWidget& Open2D();
  void CloseByUser(QWidget& window);
  /// The toolkit's own events: layout, repaints, queued calls.
  static void HandleEvents();

  template <class Control>
  static Control& Child(QWidget& window, QAnyStringView name) {
    auto* control = window.findChild<Control*>(name.toString());
    if (!control) throw std::runtime_error("no control " + name.toString().toStdString());
    return *control;
  }
  static std::string Label(QWidget& window, const char* name) {
    return Child<QLabel>(window, name).text().toStdString();
  }
  static bool Ticked(QWidget& window, const QString& name) { return Child<QAbstractButton>(window, name).isChecked(); }

  /// A click of the left button where a tick box or a radio button has its mark, or a button its middle.
  void Click(QWidget& window, const QString& name);
  void PressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void Type(QWidget& widget, const char* text);
  /// Gives a control the focus and presses a key.
  void KeyAt(QWidget& window, const QString& name, Qt::Key key);
  /// What a user does who opens a combo and takes an entry.
  void Choose(QWidget& window, const char* combo, const char* entry);
  /// Types a text into a combo in place of what stands there.
  void TypeInto(QWidget& window, const char* combo, const char* text);
  /// One notch of the wheel over a control, towards larger values.
  void TurnWheel(QWidget& widget);

  /// The controls that the tab key reaches, in its order, by their object names.
  static std::vector<std::string> TabOrder(QWidget& window);
  /// Texts whose mnemonic another one has already, or that have none though they could be reached by it.
  static std::vector<std::string> MnemonicClashes(QWidget& window);
  /// Labels that are no buddy of a field, notes of several lines apart.
  static std::vector<std::string> LabelsWithoutField(QWidget& window);
  static std::vector<std::string> ControlsWithoutName(QWidget& window);
};

}  // namespace kestrava::panels::ui
