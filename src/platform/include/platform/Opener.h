// The door through which addresses, documents and other programs are opened.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

class Opener {
 public:
  virtual ~Opener() = default;
  /// Opens an address or a file with the desktop's default handler. @return false if the machine has none for it
  virtual bool Open(std::string_view target) = 0;
  /// Starts a program and does not wait for it. @return false if it could not be started
  virtual bool Run(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

}  // namespace kestrava::platform
