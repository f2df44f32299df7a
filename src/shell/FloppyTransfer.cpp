#include "shell/FloppyTransfer.h"

#include <filesystem>
#include <string>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Text.h"

namespace kestrava::shell {

namespace {

/// The medium in the drive. @throws platform::Fault "Disk not ready" if there is none
std::filesystem::path MountedMedium() {
  const auto media = platform::TheFiles().RemovableMedia();
  if (media.empty()) throw platform::Fault::DiskNotReady();
  return media.front();
}

void CopyElementFile(const std::string& address) {
  const std::string file = platform::FileNameOfAddress(address);
  platform::TheFiles().Copy(platform::InAppDir(file), MountedMedium() / file);
}

/// @return the number of files that were copied @throws platform::Fault "Disk not ready"
int CopyAllElementFiles(const orbit::Tables& tables) {
  int copied = 0;
  for (int row = 1; row <= orbit::kGroupRows; ++row) {
    const std::string& address = platform::At(tables.GroupList, row).Address;
    if (address.empty()) continue;
    try {
      CopyElementFile(address);
      ++copied;
    } catch (const platform::Fault& fault) {
      if (fault.Number() == platform::Fault::DiskNotReady().Number()) throw;
    }
  }
  return copied;
}

}  // namespace

void TransferElementsToFloppy(const orbit::Tables& tables) {
  platform::Messages& messages = platform::TheMessages();
  int copied = 0;
  if (messages.AskYesNo("Copy ALL Keplerian element files onto a Floppy disk ?", "Keplerian Data Transfer")) {
    try {
      copied = CopyAllElementFiles(tables);
    } catch (const platform::Fault&) {
      messages.Show("Floppy Drive A: is not ready, or no Floppy disk is inserted");
      return;
    }
  }
  messages.Show(std::to_string(copied) + " Keplerian files copied to Floppy disk");
}

}  // namespace kestrava::shell
