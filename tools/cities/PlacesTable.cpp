#include "PlacesTable.h"

#include <array>
#include <memory>
#include <stdexcept>
#include <string_view>

#include <shapefil.h>

namespace kestrava::tools {

namespace {

/// Windows-1252, bytes 0x80 to 0x9F; 0 where it has no character.
constexpr std::array<char32_t, 32> kWindowsLetters{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                   0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::string Utf8OfWindows1252(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    char32_t c = static_cast<unsigned char>(byte);
    if (c >= 0x80 && c <= 0x9F) c = kWindowsLetters[c - 0x80];
    if (c < 0x80) {
      text += static_cast<char>(c);
    } else if (c < 0x800) {
      text += static_cast<char>(0xC0U | c >> 6U);
      text += static_cast<char>(0x80U | (c & 0x3FU));
    } else {
      text += static_cast<char>(0xE0U | c >> 12U);
      text += static_cast<char>(0x80U | (c >> 6U & 0x3FU));
      text += static_cast<char>(0x80U | (c & 0x3FU));
    }
  }
  return text;
}

class Table {
 public:
  explicit Table(const std::string& file) : handle_(DBFOpen(file.c_str(), "rb"), DBFClose) {
    if (!handle_) throw std::runtime_error("cannot read " + file);
  }
  int Rows() const { return DBFGetRecordCount(handle_.get()); }
  std::string Text(int row, const char* field) const {
    return Utf8OfWindows1252(DBFReadStringAttribute(handle_.get(), row, Index(field)));
  }
  int Number(int row, const char* field) const { return DBFReadIntegerAttribute(handle_.get(), row, Index(field)); }

 private:
  int Index(const char* field) const {
    const int index = DBFGetFieldIndex(handle_.get(), field);
    if (index < 0) throw std::runtime_error(std::string("no column ") + field);
    return index;
  }
  std::unique_ptr<DBFInfo, decltype(&DBFClose)> handle_;
};

}  // namespace

std::vector<PlacesRow> ReadPlacesTable(const std::string& shapefile) {
  const Table table(shapefile + ".dbf");
  const std::unique_ptr<SHPInfo, decltype(&SHPClose)> points(SHPOpen((shapefile + ".shp").c_str(), "rb"), SHPClose);
  if (!points) throw std::runtime_error("cannot read " + shapefile + ".shp");
  std::vector<PlacesRow> rows;
  for (int i = 0; i < table.Rows(); ++i) {
    const std::unique_ptr<SHPObject, decltype(&SHPDestroyObject)> point(SHPReadObject(points.get(), i),
                                                                        SHPDestroyObject);
    if (!point || point->nVertices != 1) throw std::runtime_error("a row without a point");
    rows.push_back({table.Text(i, "name"), table.Text(i, "namepar"), table.Text(i, "namealt"),
                    table.Text(i, "meganame"), table.Text(i, "adm0name"), table.Text(i, "adm1name"), *point->padfY,
                    *point->padfX, table.Number(i, "pop_max")});
  }
  return rows;
}

}  // namespace kestrava::tools
