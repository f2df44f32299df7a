// The man page against what the program says of itself: neither names an option or a command that the other does not.
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/Terminal.h"

namespace kestrava::cli {
namespace {

using Names = std::set<std::string>;

constexpr const char* kWindows = "";  // the windows, under the commands

Names LongOptionsIn(const std::string& text) {
  static const std::regex option("--[a-z]+(-[a-z]+)*");
  return {std::sregex_token_iterator(text.begin(), text.end(), option), {}};
}

/// The first words of the lines between two lines of a help, and all that stands there.
struct Part {
  Names words;
  std::string text;
};
Part PartOf(const std::string& help, const std::string& head) {
  Part part;
  std::istringstream lines(help);
  std::string line;
  while (std::getline(lines, line) && line != head) {
  }
  while (std::getline(lines, line) && !line.empty()) {
    if (line.starts_with("          ")) continue;  // an explanation goes on
    std::string word;
    std::istringstream(line) >> word;
    part.words.insert(word);
    part.text += word + "\n";
  }
  return part;
}

class ManPage : public Terminal {
 protected:
  ManPage() {
    std::ifstream file(KESTRAVA_SOURCE_DIR "packaging/kestrava.1", std::ios::binary);
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    page_ = std::regex_replace(source, std::regex(R"(\\-)"), "-");
  }

  std::string Section(const std::string& name) const {
    const std::string head = ".SH " + name + "\n";
    const std::size_t at = page_.find(head);
    if (at == std::string::npos) throw std::runtime_error("the man page has no section " + name);
    const std::size_t begin = at + head.size();
    return page_.substr(begin, page_.find("\n.SH ", begin) - begin + 1);
  }
  /// The options of each command, as the synopsis has them.
  std::map<std::string, Names> Synopsis() const {
    std::map<std::string, Names> options;
    const std::string text = Section("SYNOPSIS");
    const std::regex use(R"(\.B kestrava ?([a-z]*)\n)");
    for (std::sregex_iterator at(text.begin(), text.end(), use), end; at != end; ++at) {
      const std::string behind = at->suffix();
      options[(*at)[1]] = LongOptionsIn(behind.substr(0, behind.find(".br\n")));
    }
    return options;
  }
  /// What the entries of a section are about: the lines behind ".TP".
  std::string Entries(const std::string& section) const {
    std::string entries;
    const std::string text = Section(section);
    const std::regex entry(R"(\.TP\n(.*)\n)");
    for (std::sregex_iterator at(text.begin(), text.end(), entry), end; at != end; ++at) {
      entries += (*at)[1].str() + "\n";
    }
    return entries;
  }
  /// The options of a command, as its help has them; of the program itself without one. Every help has --help.
  Names Helped(const std::string& command) {
    std::vector<std::string> question{"--help"};
    if (command != kWindows) question.insert(question.begin(), command);
    const std::string help = Run(question).out;
    Names options = LongOptionsIn(PartOf(help, "Options:").text);
    EXPECT_EQ(options.erase("--help"), 1u) << help;
    return options;
  }

 private:
  std::string page_;
};

TEST_F(ManPage, ItsSynopsisHasTheOptionsOfEveryHelp) {
  const std::map<std::string, Names> synopsis = Synopsis();
  ASSERT_EQ(synopsis.size(), 7u);
  for (const auto& [command, options] : synopsis) {
    Names helped = Helped(command);
    if (command == kWindows) helped.erase("--version");
    EXPECT_FALSE(options.empty()) << command;
    EXPECT_EQ(options, helped) << "kestrava " << command;
  }
}

TEST_F(ManPage, ItExplainsEveryOptionThereIsAndNoOther) {
  Names all{"--help"};
  for (const auto& [command, options] : Synopsis()) all.merge(Helped(command));
  EXPECT_GT(all.size(), 8u);
  EXPECT_EQ(LongOptionsIn(Entries("OPTIONS")), all);
}

TEST_F(ManPage, ItHasTheCommandsOfTheHelp) {
  Names explained;
  const std::string entries = Entries("COMMANDS");
  const std::regex word(R"(\.B ([a-z]+)\n)");
  for (std::sregex_iterator at(entries.begin(), entries.end(), word), end; at != end; ++at) explained.insert((*at)[1]);
  const Names commands = PartOf(Run({"--help"}).out, "Subcommands:").words;
  EXPECT_GT(commands.size(), 1u);
  EXPECT_EQ(explained, commands);
  Names used;
  for (const auto& [command, options] : Synopsis()) {
    if (command != kWindows) used.insert(command);
  }
  EXPECT_EQ(used, commands);
}

}  // namespace
}  // namespace kestrava::cli
