// The help page as it is shipped, against the windows that the program registers.
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "shell/Menus.h"

#include "RegisterWindows.h"
#include "support/House.h"
#include "support/StationFiles.h"

namespace kestrava::first_hour {
namespace {

/// A caption of the launcher or of one of its menus, and the window that it opens.
using Caption = std::pair<std::string, std::string>;

class Help : public testing::House {
 protected:
  Help() {
    const auto names = app::RegisterWindows(*registry_, {}, {});
    registered = {names.begin(), names.end()};
  }

  std::vector<Caption> CaptionsOfRegisteredWindows() const {
    std::vector<Caption> captions;
    for (const shell::LauncherButton& button : shell::LauncherButtons()) {
      if (shell::OpensWindow(button) && registry_->Knows(button.target))
        captions.emplace_back(button.caption, button.target);
    }
    for (const shell::MenuEntry& entry : shell::MenuEntries()) {
      if (!entry.window.empty() && registry_->Knows(entry.window)) captions.emplace_back(entry.caption, entry.window);
    }
    return captions;
  }

  /// Headings of the page by the window that they are about.
  std::map<std::string, std::string> Chapters() const {
    const std::string mark = "data-window=\"";
    std::map<std::string, std::string> chapters;
    for (std::size_t at = page.find(mark); at != std::string::npos; at = page.find(mark, at + 1)) {
      const std::size_t name = at + mark.size();
      const std::size_t text = page.find('>', name) + 1;
      chapters[page.substr(name, page.find('"', name) - name)] = page.substr(text, page.find('<', text) - text);
    }
    return chapters;
  }

  /// The page's words with one blank between two.
  std::string Words() const {
    std::string words;
    for (const char c : page) {
      const bool blank = c == ' ' || c == '\n' || c == '\r';
      if (!blank || (!words.empty() && words.back() != ' ')) words += blank ? ' ' : c;
    }
    return words;
  }

  const std::string page = testing::StationFile("faq.html");
  std::set<std::string> registered;

 private:
  std::unique_ptr<platform::Windows> registry_ = platform::MakeWindows();
};

TEST_F(Help, HasAChapterForEveryWindowThatAMenuOpens) {
  const auto captions = CaptionsOfRegisteredWindows();
  EXPECT_GE(captions.size(), 16U);
  const auto chapters = Chapters();
  for (const auto& [caption, window] : captions) EXPECT_EQ(chapters.count(window), 1U) << caption;
}

TEST_F(Help, NamesEveryCaptionThatOpensAWindow) {
  const std::string words = Words();
  for (const auto& [caption, window] : CaptionsOfRegisteredWindows())
    EXPECT_NE(words.find("<b>" + caption + "</b>"), std::string::npos) << caption;
}

TEST_F(Help, DescribesNoWindowThatDoesNotExist) {
  for (const auto& [window, heading] : Chapters()) EXPECT_EQ(registered.count(window), 1U) << window << ": " << heading;
}

TEST_F(Help, EveryChapterIsInTheContents) {
  const std::string mark = "<h2 id=\"";
  int chapters = 0;
  for (std::size_t at = page.find(mark); at != std::string::npos; at = page.find(mark, at + 1)) {
    const std::size_t name = at + mark.size();
    const std::string id = page.substr(name, page.find('"', name) - name);
    EXPECT_NE(page.find("<a href=\"#" + id + "\">"), std::string::npos) << id;
    ++chapters;
  }
  EXPECT_GE(chapters, 20);
}

}  // namespace
}  // namespace kestrava::first_hour
