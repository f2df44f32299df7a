// The door to the printers of the machine, and what is handed to them.
#pragma once

#include <string>
#include <vector>

#include "platform/Surface.h"

namespace kestrava::platform {

/// A line of a document, without a line end.
struct PrintLine {
  std::string text;
  bool bold = false;
  Colour colour = kBlack;
};

/// Lines in one fixed-pitch face, so that what stands in a column of characters stands in one on paper too.
struct PrintDocument {
  std::string title;  ///< what the print job is called
  std::string font;   ///< name of the face; another fixed-pitch one is taken where it is not there
  std::vector<PrintLine> lines;
};

class Printing {
 public:
  virtual ~Printing() = default;
  /// Opens the printer dialog and returns when it is closed. What was chosen holds for the next print.
  /// @param title  of the document that is to be printed
  /// @return false if it was cancelled
  virtual bool OpenDialog(const std::string& title) = 0;
  /// Prints a document in one job: as the dialog has chosen, or on the default printer if it was cancelled.
  /// @return false if there is no printer; nothing was then written. @throws Fault "Device I/O error"
  virtual bool Print(const PrintDocument& document) = 0;
};

}  // namespace kestrava::platform
