#include "StartNews.h"

#include <algorithm>
#include <vector>

#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Quote.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "store/Backups.h"
#include "store/ElementFiles.h"
#include "store/WaitingFavourites.h"

namespace kestrava::shell {

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kNamed = 20;
constexpr std::size_t kReasons = 5;

std::string Listed(const Texts& items, std::size_t most) {
  std::string text;
  for (std::size_t i = 0; i < std::min(items.size(), most); ++i) text += (i > 0 ? ", " : "") + items[i];
  if (items.size() > most) text += " and " + std::to_string(items.size() - most) + " more";
  return text;
}

/// The element files that may have held what is missing: "weather.txt cannot be read (Path/File access error)".
Texts TroubledFiles(const orbit::Tables& tables) {
  Texts seen, reasons;
  for (int row = 1; row <= tables.GroupCount; ++row) {
    const std::string file = store::ElementFileOf(platform::At(tables.GroupList, row));
    if (file.empty() || std::find(seen.begin(), seen.end(), file) != seen.end()) continue;
    seen.push_back(file);
    if (const std::string trouble = store::TroubleWith(file); !trouble.empty())
      reasons.push_back(platform::QuoteOf(file) + " " + trouble);
  }
  return reasons;
}

std::string WhyUnknown(const orbit::Tables& tables) {
  const auto groups = platform::LastKnown("groups.dat");
  if (groups && !groups->whole) return "groups.dat could not be read whole";
  const Texts reasons = TroubledFiles(tables);
  return reasons.empty() ? "no element file names the others any more" : Listed(reasons, kReasons);
}

std::string FavouriteNews(const orbit::Tables& tables, std::string_view satelliteNames) {
  const std::string known = platform::ToCapitals(satelliteNames);
  Texts unknown, tooMany;
  for (const store::WaitingFavourite& one : store::ReadWaiting()) {
    if (one.told) continue;
    (platform::Contains(known, platform::ToCapitals(one.name)) ? tooMany : unknown).push_back(one.name);
  }
  std::string news;
  if (!unknown.empty()) {
    const std::size_t all = static_cast<std::size_t>(tables.FaveCount) + unknown.size();
    news = std::to_string(tables.FaveCount) + " of " + std::to_string(all) + " favourites: " + WhyUnknown(tables) +
           ".\n\nNot in the list for now: " + Listed(unknown, kNamed) +
           ". Kestrava remembers them, and puts them back in their places by itself at the first start that finds "
           "their elements.";
  }
  if (!tooMany.empty()) {
    news += (news.empty() ? "" : "\n\n") + std::string("The list of favourites takes 499: ") + Listed(tooMany, kNamed) +
            (tooMany.size() == 1 ? " is" : " are") + " remembered beside it until there is room.";
  }
  return news;
}

/// Why a list was not read to its end.
std::string WhyNotWhole(const std::string& trouble, int most, std::string_view rows) {
  if (trouble != platform::Fault::SubscriptOutOfRange().what()) return trouble;
  return "it has more than " + std::to_string(most) + " " + std::string(rows) + ", the most that Kestrava can hold";
}

std::string FileNews(std::string_view file, int most, std::string_view rows) {
  const auto known = platform::LastKnown(file);
  if (!known || known->trouble.empty()) return {};
  const std::string name(file);
  if (!known->whole) {
    return name + " could not be read whole: " + WhyNotWhole(known->trouble, most, rows) +
           ". Kestrava goes on with what it could read, and leaves the file as it is. Correct it with a text editor, "
           "then start Kestrava again.";
  }
  if (platform::FileExists(platform::InAppDir(file))) {
    return name + " could not be written: " + known->trouble +
           ". What you change may not be kept; see that the folder " + platform::AppDir +
           " can be written and that the disk has room.";
  }
  const auto backup = store::FullestBackup(file);
  if (!backup) return {};
  return name + " is not there. " + backup->fileName + ", a copy that was kept, has " + std::to_string(backup->rows) +
         " " + std::string(rows) + ": to have them back, rename it to " + name + " and start Kestrava again.";
}

}  // namespace

std::string StartNews(const orbit::Tables& tables, std::string_view satelliteNames) {
  Texts news;
  platform::FaultTrap{"StartNews"}([&] { news.push_back(FavouriteNews(tables, satelliteNames)); });
  news.push_back(FileNews("faves.dat", orbit::kFaveRows, "favourites"));
  news.push_back(FileNews("groups.dat", orbit::kGroupRows, "groups"));
  news.push_back(FileNews("Locations.dat", orbit::kLocationRows, "places"));
  std::string text;
  for (const std::string& part : news) text += (text.empty() || part.empty() ? "" : "\n\n") + part;
  return text;
}

}  // namespace kestrava::shell
