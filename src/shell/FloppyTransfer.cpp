#include "shell/FloppyTransfer.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Quote.h"

namespace kestrava::shell {

namespace {

constexpr std::size_t kMostNamed = 10;
constexpr std::string_view kTitle = "Keplerian Data Transfer";

/// What a user wants to know behind the count: where the files are, and which are not there, and why.
struct Transfer {
  int copied = 0;
  std::filesystem::path medium;
  std::vector<std::string> failures;  ///< "weather.txt (Disk full)"
};

/// The medium in the drive. @throws platform::Fault "Disk not ready" if there is none
std::filesystem::path MountedMedium() {
  const auto media = platform::TheFiles().RemovableMedia();
  if (media.empty()) throw platform::Fault::DiskNotReady();
  return media.front();
}

void CopyElementFile(const std::string& address, Transfer& transfer) {
  const std::string file = platform::FileNameOfAddress(address);
  try {
    transfer.medium = MountedMedium();
    platform::TheFiles().Copy(platform::InAppDir(file), transfer.medium / file);
    ++transfer.copied;
  } catch (const platform::Fault& fault) {
    if (fault.Number() == platform::Fault::DiskNotReady().Number()) throw;
    transfer.failures.push_back(platform::QuoteOf(file) + " (" + fault.what() + ")");
  }
}

/// @throws platform::Fault "Disk not ready"
void CopyAllElementFiles(const orbit::Tables& tables, Transfer& transfer) {
  for (int row = 1; row <= orbit::kGroupRows; ++row) {
    const std::string& address = platform::At(tables.GroupList, row).Address;
    if (!address.empty()) CopyElementFile(address, transfer);
  }
}

std::string NotCopied(const Transfer& transfer) {
  if (transfer.failures.empty()) return {};
  std::string text = "Not copied:";
  for (std::size_t i = 0; i < std::min(transfer.failures.size(), kMostNamed); ++i) text += "\n" + transfer.failures[i];
  if (transfer.failures.size() > kMostNamed) {
    text += "\nand " + std::to_string(transfer.failures.size() - kMostNamed) + " more";
  }
  return text;
}

/// A message of its own, as the count is told in words of its own. None where there is nothing to add.
void TellDetails(const Transfer& transfer) {
  std::string text;
  if (transfer.copied > 0) text = "The copied files are in " + transfer.medium.string() + ".";
  const std::string notCopied = NotCopied(transfer);
  if (!text.empty() && !notCopied.empty()) text += "\n\n";
  text += notCopied;
  if (!text.empty()) platform::TheMessages().Show(text, kTitle);
}

}  // namespace

void TransferElementsToFloppy(const orbit::Tables& tables) {
  platform::Messages& messages = platform::TheMessages();
  Transfer transfer;
  if (messages.AskYesNo("Copy ALL Keplerian element files onto a Floppy disk ?", kTitle)) {
    try {
      CopyAllElementFiles(tables, transfer);
    } catch (const platform::Fault&) {
      messages.Show("Floppy Drive A: is not ready, or no Floppy disk is inserted");
      TellDetails(transfer);
      return;
    }
  }
  messages.Show(std::to_string(transfer.copied) + " Keplerian files copied to Floppy disk");
  TellDetails(transfer);
}

}  // namespace kestrava::shell
