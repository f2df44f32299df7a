#include "TableFixture.h"

namespace kestrava::views2d {

TableFixture::TableFixture() {
  settings.Set("Speechpack", "1");
  settings.Set("HASL", "450");
  tables.LocationName = "Home";
}

TableWindow& TableFixture::OpenTable() {
  table = std::make_unique<TableWindow>(sky, view);
  table->Load();
  return *table;
}

std::vector<std::string> TableFixture::RowTexts() const {
  std::vector<std::string> texts;
  for (const TableRow& row : table->Rows()) texts.push_back(row.cells[0]);
  return texts;
}

void TableFixture::WaitUntil(const std::string& satellite, bool up) {
  while ((ElevationDeg(satellite) > 0) != up) clock.AdvanceMs(10000);
}

}  // namespace kestrava::views2d
