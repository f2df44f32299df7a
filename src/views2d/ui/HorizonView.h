// The horizon window's looks: builds the controls, hands every event to HorizonWindow and shows what that decides.
#pragma once

#include <QMenuBar>
#include <QPlainTextEdit>
#include <array>
#include <memory>
#include <span>
#include <string>

#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"
#include "views2d/HorizonWindow.h"

#include "HorizonCanvas.h"
#include "Scenery.h"
#include "SpritePictures.h"

namespace kestrava::views2d::ui {

struct HorizonMenuRow {
  const char* objectName;  ///< null: a separator
  const char* text;
  const char* key;
  void (HorizonWindow::*action)();
  int mark;  ///< the HorizonMark it shows, or -1
};

class HorizonView : public platform::qt::StationWindow, public HorizonWindowView {
 public:
  explicit HorizonView(const orbit::Sky& sky);
  ~HorizonView() override;

  void OnUnload() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildUi();
  void BuildMenus(QMenuBar& bar);
  void AddRows(QMenu& menu, std::span<const HorizonMenuRow> rows);
  void BuildInformation();
  void ConnectSignals();
  void ShowTip(const QHelpEvent& event);
  void LightScenery();

  // HorizonWindowView
  int InnerWidthPx() const override { return body_->width(); }
  int InnerHeightPx() const override { return body_->height(); }
  int TextWidthPx() const override;
  int ExpandWidthPx() const override;
  int FinalWidthPx() const override { return canvas_->Back().Width(); }
  int FinalHeightPx() const override { return canvas_->Back().Height(); }
  TextSize LabelSize(std::string_view text) const override;
  void ApplySkin() override { StationWindow::ApplySkin(); }
  void ApplyPlace(const WindowPlace& place) override;
  void ApplyLayout(const HorizonLayout& layout) override;
  void LoadBackDrop(const std::string& file) override;
  void RepaintHorizon() override;
  void SetDataText(std::string_view text) override;
  bool IsMarked(HorizonMark mark) const override { return Marked(mark).isChecked(); }
  void SetMarked(HorizonMark mark, bool on) override { Marked(mark).setChecked(on); }

  QAction& Marked(HorizonMark mark) const { return *marked_[static_cast<std::size_t>(mark)]; }

  orbit::Sky sky_;
  std::unique_ptr<HorizonWindow> behaviour_;
  Scenery scenery_;
  platform::qt::ImageSurface backDrop_{kBackDropDesignWidth, kBackDropDesignHeight};
  SpritePictures sprites_;
  std::unique_ptr<HorizonPainter> painter_;
  std::array<QAction*, 3> marked_{};
  bool painting_ = false;
  QWidget* body_ = nullptr;
  HorizonCanvas* canvas_ = nullptr;
  platform::qt::SkinButton* expand_ = nullptr;
  QPlainTextEdit* satInfo_ = nullptr;
};

}  // namespace kestrava::views2d::ui
