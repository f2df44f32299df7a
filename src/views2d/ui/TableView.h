// The table window's looks: builds the controls, hands every event to TableWindow and shows what that decides.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"
#include "views2d/TableWindow.h"

#include "StatusStrip.h"
#include "TableList.h"

class QHBoxLayout;

namespace kestrava::views2d::ui {

class TableView : public platform::qt::StationWindow, public TableWindowView {
 public:
  explicit TableView(const orbit::Sky& sky);
  ~TableView() override;

  void OnUnload() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BuildUi();
  QHBoxLayout* BuildLastLine();
  void ConnectSignals();
  CutLabel& Label(TableLabel label) const { return *labels_[static_cast<std::size_t>(label)]; }

  // TableWindowView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  void ShowNewRows() override;
  void ShowChangedRows() override;
  void SetLabel(TableLabel label, const std::string& text) override;
  void Minimise() override { showMinimized(); }
  void CloseSelf() override { Unload(); }

  std::unique_ptr<TableWindow> behaviour_;
  TableList* list_ = nullptr;
  std::array<CutLabel*, 7> labels_{};
  platform::qt::SkinButton* minimise_ = nullptr;
  platform::qt::SkinButton* exit_ = nullptr;
};

}  // namespace kestrava::views2d::ui
