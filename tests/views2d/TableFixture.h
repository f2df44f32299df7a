// The behaviour of the table window over the real engine, driven through a window that only remembers.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "views2d/TableWindow.h"

#include "PlotFixture.h"

namespace kestrava::views2d {

class RememberingTableView : public TableWindowView {
 public:
  void ApplySkin() override { order.emplace_back("skin"); }
  void ShowNewRows() override { order.emplace_back("new rows"); }
  void ShowChangedRows() override {
    order.emplace_back("changed rows");
    if (inShowing) inShowing();
  }
  void SetLabel(TableLabel label, const std::string& text) override { labels[label] = text; }
  void Minimise() override { order.emplace_back("minimised"); }
  void CloseSelf() override { order.emplace_back("closed"); }

  std::vector<std::string> order;
  std::function<void()> inShowing;
  std::map<TableLabel, std::string> labels;
};

class TableFixture : public PlotFixture {
 protected:
  TableFixture();

  /// A loaded window, before its first tick.
  TableWindow& OpenTable();
  /// Lets a second pass: the timer ticks.
  void Second() { eventLoop.Advance(1); }
  std::vector<std::string> RowTexts() const;
  const TableRow& Row(std::size_t index) const { return table->Rows().at(index); }
  const std::string& Label(TableLabel label) { return view.labels[label]; }
  /// Moves the clock on, second by second, until a satellite stands on the wanted side of the horizon.
  void WaitUntil(const std::string& satellite, bool up);

  RememberingTableView view;
  std::unique_ptr<TableWindow> table;
};

}  // namespace kestrava::views2d
