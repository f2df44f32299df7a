// Files in AppDir that several running copies of the station may write. Who writes one keeps the others out for as long
// as he reads it anew and replaces it; what they changed since this run last read it he knows by what is remembered
// here.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Folders.h"

namespace kestrava::platform {

/// How copies keep each other out of AppDir; null where nobody else can come. Set once by main.
void UseFolderLocks(Folders* locks);

/// Waits until no other copy writes in AppDir, and keeps them out until the hold goes. Who holds it shows no message
/// and asks for no second one: both would wait for ever.
/// @return none on a medium that knows no holds
std::unique_ptr<FolderHold> HoldAppDir();

/// A file of rows as this run's table had it when it was last read or written.
struct KnownFile {
  std::vector<std::string> rows;
  bool whole = true;    ///< false: the table could not be read to its end
  std::string trouble;  ///< why not, or why it could not be written: a fault's text
};
std::optional<KnownFile> LastKnown(std::string_view fileName);
void RememberKnown(std::string_view fileName, KnownFile known);

/// As at the start of a run. For tests, which share one process.
void ForgetSharedFiles();

}  // namespace kestrava::platform
