#include "WindowOptions.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"

#include "Station.h"

namespace kestrava::cli {

namespace {

struct WindowOption {
  std::string_view name;
  bool hasValue = true;
};

constexpr std::array<WindowOption, 2> kOurs{{{"data"}, {"tour"}}};

/// What Qt's application classes and its X11 door take off the arguments; each with one dash or two.
constexpr std::array<WindowOption, 21> kToolkits{{{"platform"},
                                                  {"platformpluginpath"},
                                                  {"platformtheme"},
                                                  {"plugin"},
                                                  {"qwindowgeometry"},
                                                  {"geometry"},
                                                  {"qwindowtitle"},
                                                  {"title"},
                                                  {"qwindowicon"},
                                                  {"icon"},
                                                  {"session"},
                                                  {"style"},
                                                  {"stylesheet"},
                                                  {"display"},
                                                  {"name"},
                                                  {"visual"},
                                                  {"qmljsdebugger"},
                                                  {"reverse", false},
                                                  {"widgetcount", false},
                                                  {"nograb", false},
                                                  {"dograb", false}}};

/// An argument that begins with a dash, taken apart.
struct Option {
  const WindowOption* known = nullptr;
  bool isOurs = false;
  bool valueStandsBehind = false;  ///< in the next argument
};

template <std::size_t kCount>
const WindowOption* Find(const std::array<WindowOption, kCount>& options, std::string_view name) {
  const auto found = std::find_if(options.begin(), options.end(), [&](const auto& o) { return o.name == name; });
  return found == options.end() ? nullptr : &*found;
}

Option OptionOf(std::string_view argument) {
  const bool twoDashes = platform::BeginsWith(argument, "--");
  const std::string_view written = argument.substr(twoDashes ? 2 : 1);
  const std::string_view name = written.substr(0, written.find('='));
  Option option;
  option.known = twoDashes ? Find(kOurs, name) : nullptr;
  option.isOurs = option.known != nullptr;
  if (!option.known) option.known = Find(kToolkits, name);
  option.valueStandsBehind = option.known && option.known->hasValue && name.size() == written.size();
  return option;
}

std::string Unknown(std::string_view option) {
  const std::vector<std::string> ours{"--data", "--tour", "--help", "--version"};
  return "there is no option '" + std::string(option) + "'." + DidYouMean(NearNames(option, ours)) +
         " kestrava --help names them all";
}

}  // namespace

std::string_view FirstWord(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (!platform::BeginsWith(arguments[i], "-")) return arguments[i];
    if (OptionOf(arguments[i]).valueStandsBehind) ++i;
  }
  return {};
}

std::string WrongWindowOption(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument.empty()) return "an argument is empty";
    if (argument == "--" || !platform::BeginsWith(argument, "-")) continue;
    const Option option = OptionOf(argument);
    if (!option.known) return Unknown(argument);
    if (!option.valueStandsBehind) continue;
    if (option.isOurs && i + 1 == arguments.size()) return argument + " wants a folder";
    ++i;
  }
  return {};
}

}  // namespace kestrava::cli
