// The printing door over the toolkit's print support, and how a document is laid out on pages.
#pragma once

#include <functional>
#include <memory>

#include "platform/Printing.h"

class QPagedPaintDevice;
class QPrinter;
class QPrinterInfo;

namespace kestrava::platform::qt {

/// Sets a document on the pages of a device, black on white but for the colours that its lines have. The paper is
/// turned where a line is wider than the page; the face is made smaller where even that is not enough.
/// @throws Fault "Device I/O error" if the device takes no painting
void PrintLines(const PrintDocument& document, QPagedPaintDevice& device);

class QtPrinting : public Printing {
 public:
  using DefaultPrinter = std::function<QPrinterInfo()>;

  QtPrinting();
  /// @param defaultPrinter  gives the printer that a cancelled dialog prints to; a null one where there is none
  explicit QtPrinting(DefaultPrinter defaultPrinter);
  ~QtPrinting() override;

  bool OpenDialog(const std::string& title) override;
  bool Print(const PrintDocument& document) override;

 private:
  DefaultPrinter defaultPrinter_;
  std::unique_ptr<QPrinter> chosen_;
};

}  // namespace kestrava::platform::qt
