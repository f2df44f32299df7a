// The texts of pass rows: the fixed columns that the saved file and the printer share, the document that is printed,
// and the way back from a cell to a date. Month abbreviations are English in every locale.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/SerialDate.h"
#include "platform/Surface.h"
#include "predict/PassTable.h"

namespace kestrava::predict {

inline constexpr platform::Colour kHeadingColour = 0xFA0000;  ///< red 0, green 0, blue 250
inline constexpr std::string_view kPassHeading =
    "SATELLITE---------  DATE-------    TIME----    S-AZ    MAX EL-----    DURATION    E-AZ        SUNLIT  VISIBLE";
inline constexpr std::string_view kPrintFont = "Lucida Console";  ///< or a fixed-pitch face in its place

/// Exactly `width` characters: the first ones of a longer text, a shorter one followed by blanks.
std::string PadToWidth(std::string_view text, int width);

/// A row as the file and the printer have it, without a line end.
std::string RowText(const PassRow& row);

/// A date as the date cells have it ("03 JUL 2004"); capitals or not. @return its midnight
/// @throws platform::Fault "Type mismatch" for anything else, also a day that its month does not have
platform::SerialDate ParseDateCell(std::string_view text);
/// A time as the time cells have it ("hh:mm:ss"). @return fraction of a day. @throws platform::Fault "Type mismatch"
platform::SerialDate ParseTimeCell(std::string_view text);

/// A piece of text as it was appended.
struct PrintedPiece {
  std::string text;
  bool bold = false;
  platform::Colour colour = platform::kBlack;
};

/// `Printed`: the buffer in which a text is put together for the file or the printer.
class PrintedText {
 public:
  void Clear() { pieces_.clear(); }
  void AddPrintedText(std::string_view text, bool bold, platform::Colour colour);

  const std::vector<PrintedPiece>& Pieces() const { return pieces_; }
  /// Everything, lines ended by CR LF.
  std::string PlainText() const;
  /// One piece for each line, without line ends: what a page is set from. A line has the look of its first piece.
  std::vector<PrintedPiece> Lines() const;
  /// Characters of the longest line: whether a page must be turned.
  int WidestLine() const;

 private:
  std::vector<PrintedPiece> pieces_;
};

/// Puts credit line, blank line, heading and rows into a buffer, which is emptied first.
void AssemblePasses(PrintedText& printed, std::string_view credit, const PassTable& table);

}  // namespace kestrava::predict
