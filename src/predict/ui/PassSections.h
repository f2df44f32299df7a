// The three sections of the pass window: what is asked for now, the saved jobs, and the results.
#pragma once

#include <QCalendarWidget>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/SkinButton.h"

#include "PassList.h"

class QVBoxLayout;

namespace kestrava::predict::ui {

/// "Instant Prediction": a day, a satellite of a group or a favourite, and the button that works it out.
class InstantSection : public QGroupBox {
 public:
  explicit InstantSection(QWidget* parent);

  QCalendarWidget* calendar = nullptr;
  platform::qt::ComboList* groupname = nullptr;
  platform::qt::ComboList* satelliteName = nullptr;
  platform::qt::ComboList* favouriteName = nullptr;
  QCheckBox* visOnly = nullptr;
  platform::qt::SkinButton* calc = nullptr;
  platform::qt::SkinButton* again = nullptr;

 private:
  void BuildCalendar();
  void BuildChoices(QVBoxLayout& column);
};

/// "Preset Predictions": the list of jobs, and what can be done with them.
class PresetSection : public QGroupBox {
 public:
  explicit PresetSection(QWidget* parent);

  platform::qt::ListBox* presets = nullptr;
  platform::qt::SkinButton* go = nullptr;
  platform::qt::SkinButton* add = nullptr;
  platform::qt::SkinButton* edit = nullptr;
  platform::qt::SkinButton* remove = nullptr;
  platform::qt::SkinButton* stop = nullptr;
  QProgressBar* work = nullptr;
};

/// The list, the line below it, and what can be done with the rows.
class ResultSection : public QGroupBox {
 public:
  ResultSection(const PassTable& table, QWidget* parent);

  PassList* passes = nullptr;
  QLabel* status = nullptr;
  QProgressBar* sorting = nullptr;
  platform::qt::SkinButton* sortChron = nullptr;
  platform::qt::SkinButton* clearResults = nullptr;
  platform::qt::SkinButton* saveResults = nullptr;
  platform::qt::SkinButton* print = nullptr;
};

/// The day's tones follow the look that holds.
void ColourCalendar(QCalendarWidget& calendar);

}  // namespace kestrava::predict::ui
