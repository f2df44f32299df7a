// The map's info pane: the info lines under their headings, real time or time warp, the satellite's data text and the
// quick ETA list. It only shows; what happens is decided in MapWindow.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QSlider>
#include <QWidget>
#include <array>

#include "platform/qt/SkinButton.h"
#include "platform/qt/Widgets.h"
#include "views2d/MapState.h"

namespace kestrava::views2d::ui {

class InfoPane : public QWidget {
 public:
  explicit InfoPane(QWidget* parent);

  void SetTextHeight(int px);
  /// Shows an info line; its tooltip has it whole, with what a number means that does not say it itself.
  void ShowLine(int index, const QString& text);
  QLabel& RemoteStat(int index) { return *remoteStat_[static_cast<std::size_t>(index)]; }
  platform::qt::SkinButton& TimeButton(int index) { return *time_[static_cast<std::size_t>(index)]; }
  platform::qt::SkinButton& InfoModeButton(int index) { return *infoMode_[static_cast<std::size_t>(index)]; }
  QSlider& SliderWarp() { return *sliderWarp_; }
  QPlainTextEdit& DataText() { return *dataText_; }
  platform::qt::ListWidget& QuickEta() { return *quickEta_; }

 private:
  void BuildTimeControls();
  void BuildInfoLines();
  void BuildDataArea();
  void FitEtaColumns();
  void TellWarpSpeed();
  QLabel* AddHeading(int index, const char* text);
  void AddLine(int index);
  void AddPair(std::array<platform::qt::SkinButton*, 2>& pair, const char* name, const char* left, const char* right);

  int nextTop_ = 2;
  std::array<QLabel*, kRemoteStatCount> remoteStat_{};
  std::array<platform::qt::SkinButton*, 2> time_{};
  std::array<platform::qt::SkinButton*, 2> infoMode_{};
  QSlider* sliderWarp_ = nullptr;
  QPlainTextEdit* dataText_ = nullptr;
  platform::qt::ListWidget* quickEta_ = nullptr;
};

}  // namespace kestrava::views2d::ui
