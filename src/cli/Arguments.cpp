#include "Arguments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include <CLI/CLI.hpp>

#include "cli/Command.h"
#include "platform/Text.h"
#include "platform/Version.h"

#include "HelpText.h"
#include "Numbers.h"
#include "Station.h"
#include "WindowOptions.h"

namespace kestrava::cli {

namespace {

constexpr std::string_view kNotGiven = "\n";  // an empty value is one, and wrong
constexpr int kMostDays = 400;                // as far as the engine looks in one go

struct WordName {
  std::string_view name;
  Word word;
};
constexpr std::array<WordName, 6> kWords{{{"passes", Word::kPasses},
                                          {"next", Word::kNext},
                                          {"where", Word::kWhere},
                                          {"list", Word::kList},
                                          {"job", Word::kJob},
                                          {"jobs", Word::kJobs}}};

/// The options that stand behind a command.
constexpr std::array<std::string_view, 7> kOptionsOfCommands{"--at",   "--at-time",       "--days",   "--format",
                                                             "--from", "--min-elevation", "--visible"};

constexpr std::string_view kAbout =
    "Kestrava, a desktop satellite tracking station. Without a command its windows open; with one it answers here, "
    "needs no display and changes nothing on the machine.";
constexpr std::string_view kNotes =
    "North and east are positive, in --at and in all answers. Angles are degrees, azimuths from north through east, "
    "distances km, heights of places metres. Satellites go by name (capitals or not) or catalogue number. Times are "
    "local, by the zone's rule for their date; in csv and json ISO 8601 with the offset.\n"
    "Exit codes: 0 answered, 1 nothing found or an unknown name, 2 wrong use.\n"
    "More: man kestrava.";
constexpr std::string_view kAtHelp =
    "Place: degrees north, degrees east and, if wanted, metres above sea level (--at -33.9,151.2,20), or a Maidenhead "
    "locator (--at QF56oc). The stored place without it.";
constexpr std::string_view kMomentHelp =
    "2026-11-15 (its local midnight), 2026-11-15T20:30 (local), 2026-11-15T19:30Z, now, today, tomorrow.";

/// The options as they are written; numbers are read here, so that one text says what is wrong with them.
struct Written {
  std::string data{kNotGiven};
  std::string tour;
  std::vector<std::string> names;
  std::string listed = "satellites";
  std::string format = "text";
  std::string at{kNotGiven};
  std::string days = "1";
  std::string moment = "now";
  std::string minElevation{kNotGiven};
  bool visible = false;
};

int DaysOf(const std::string& text) {
  const double days = NumberBetween(text, 1, kMostDays, "--days");
  if (days != std::floor(days)) throw WrongUse("--days: " + text + " is no whole number");
  return static_cast<int>(days);
}

Format FormatOf(const Written& written, Word word) {
  constexpr std::array<std::string_view, 4> kNames{"text", "csv", "json", "ical"};
  const auto found = std::find(kNames.begin(), kNames.end(), written.format);
  const bool hasCalendar = word == Word::kPasses || word == Word::kJob;
  if (found == kNames.end() || (written.format == "ical" && !hasCalendar)) {
    throw WrongUse("--format: '" + written.format + "' is none of text, csv, json" + (hasCalendar ? ", ical" : ""));
  }
  return static_cast<Format>(found - kNames.begin());
}

Request RequestOf(const Written& written, Word word) {
  Request request;
  request.word = word;
  if (written.data != kNotGiven) request.dataFolder = written.data;
  if (request.dataFolder && platform::Trim(*request.dataFolder).empty()) throw WrongUse("--data wants a folder");
  request.names = written.names;
  for (const std::string& name : request.names) {
    if (platform::Trim(name).empty()) throw WrongUse("a name is empty");
  }
  request.listed = written.listed;
  if (request.listed != "groups" && request.listed != "satellites" && request.listed != "favourites") {
    throw WrongUse("'" + request.listed + "' is none of groups, satellites, favourites");
  }
  request.format = FormatOf(written, word);
  if (written.at != kNotGiven) request.at = ParsePlace(written.at);
  request.days = DaysOf(written.days);
  request.moment = written.moment;
  if (written.minElevation != kNotGiven) {
    request.minElevationDeg = NumberBetween(written.minElevation, -90, 90, "--min-elevation");
  }
  request.visibleOnly = written.visible;
  return request;
}

/// The grammar of the command line. Options that several commands have are added to each, so that its help names them.
class Grammar {
 public:
  Grammar() {
    app_.set_help_flag("-h,--help", "Show this help; behind a command, its own.");
    app_.set_version_flag("-v,--version", "Kestrava " + platform::LongVersion(), "Show the version.");
    app_.add_option("--data", written_.data, "Folder of the station's files.")->type_name("DIR");
    app_.add_option("--tour", written_.tour, "Without a command: save a picture of each window into DIR, and end.")
        ->type_name("DIR");
    app_.require_subcommand(1);
    app_.footer(std::string(kNotes));
    AddPasses();
    AddNext();
    AddWhere();
    AddList();
    AddJob();
    AddJobs();
  }

  CLI::App& App() { return app_; }
  const Written& Values() const { return written_; }

 private:
  CLI::App& Add(std::string_view word, std::string_view about) {
    CLI::App& command = *app_.add_subcommand(std::string(word), std::string(about));
    command.fallthrough();
    command.footer(std::string(kNotes));
    return command;
  }
  void AddFormat(CLI::App& command, std::string_view names) {
    command.add_option("--format", written_.format, std::string(names) + "; text without it.")->type_name("FORMAT");
  }
  void AddAt(CLI::App& command) { command.add_option("--at", written_.at, std::string(kAtHelp))->type_name("PLACE"); }
  void AddMoment(CLI::App& command, const std::string& option, const std::string& about) {
    command.add_option(option, written_.moment, about + " " + std::string(kMomentHelp))->type_name("TIME");
  }
  CLI::Option& AddNames(CLI::App& command, const std::string& about) {
    return *command.add_option("NAME", written_.names, about)->type_name("");
  }
  void AddPassFilters(CLI::App& command) {
    command
        .add_option("--min-elevation", written_.minElevation,
                    "Leave out passes that stay below so many whole degrees. The setting WxEL without it.")
        ->type_name("DEG");
    command.add_flag("--visible", written_.visible,
                     "Only passes that can be seen by eye: satellite sunlit, Sun 6 to 18 degrees down at the start.");
  }

  void AddPasses() {
    CLI::App& command = Add("passes", "List the passes of satellites.");
    AddNames(command, "Satellites, by name or catalogue number.").required();
    command.add_option("--days", written_.days, "Days to look ahead, 1 to 400; 1 without it.")->type_name("N");
    AddMoment(command, "--from", "Begin there; now without it.");
    AddPassFilters(command);
    AddFormat(command, "text, csv, json or ical");
    AddAt(command);
  }
  void AddNext() {
    CLI::App& command = Add("next", "Tell when satellites rise and set next.");
    AddNames(command, "Satellites, by name or catalogue number; all favourites without one.");
    AddMoment(command, "--at-time", "After that moment; now without it.");
    AddFormat(command, "text, csv or json");
    AddAt(command);
  }
  void AddWhere() {
    CLI::App& command = Add("where", "Tell where satellites are.");
    AddNames(command, "Satellites, by name or catalogue number.").required();
    AddMoment(command, "--at-time", "At that moment; now without it.");
    AddFormat(command, "text, csv or json");
    AddAt(command);
  }
  void AddList() {
    CLI::App& command = Add("list", "List what there is.");
    command.add_option("WHAT", written_.listed, "groups, satellites or favourites; satellites without it.")
        ->type_name("");
    AddFormat(command, "text, csv or json");
  }
  void AddJob() {
    CLI::App& command = Add("job",
                            "Run a saved job and print its rows: as text those that the window shows, which have "
                            "today's UTC offset. What the job says about saving and printing is not acted upon.");
    AddNames(command, "The name of the job.").required()->expected(1);
    AddMoment(command, "--from", "The day on which the job begins; today without it.");
    AddPassFilters(command);
    AddFormat(command, "text, csv, json or ical");
    AddAt(command);
  }

  void AddJobs() {
    CLI::App& command = Add("jobs", "List the saved jobs.");
    AddFormat(command, "text, csv or json");
  }

  Written written_;
  CLI::App app_{std::string(kAbout), "kestrava"};
};

const WordName* WordOf(std::string_view name) {
  const auto found = std::find_if(kWords.begin(), kWords.end(), [&](const WordName& w) { return w.name == name; });
  return found == kWords.end() ? nullptr : &*found;
}

/// An option of a command in front of it is read as if the value behind it were the command.
void RefuseMisplaced(const std::vector<std::string>& arguments) {
  const auto isWord = [](const std::string& argument) { return WordOf(argument) != nullptr; };
  const auto word = std::find_if(arguments.begin(), arguments.end(), isWord);
  for (auto at = arguments.begin(); at != word; ++at) {
    const std::string_view name = std::string_view(*at).substr(0, at->find('='));
    if (std::find(kOptionsOfCommands.begin(), kOptionsOfCommands.end(), name) == kOptionsOfCommands.end()) continue;
    throw WrongUse(std::string(name) + " stands behind the command, as in: kestrava " +
                   (word == arguments.end() ? "passes" : *word) + " ... " + *at);
  }
}

void RefuseUnknown(const std::vector<std::string>& arguments) {
  RefuseMisplaced(arguments);
  const std::string_view word = FirstWord(arguments);
  if (const std::string wrong = WrongWindowOption(arguments); word.empty() && !wrong.empty()) throw WrongUse(wrong);
  if (word.empty() || WordOf(word)) return;
  std::vector<std::string> names;
  for (const WordName& known : kWords) names.emplace_back(known.name);
  throw WrongUse("there is no command '" + std::string(word) + "'." + DidYouMean(NearNames(word, names)) +
                 " kestrava --help names them all");
}

/// What is left over when all that a command takes has been read.
std::string TooMany(const CLI::App& app) {
  const std::vector<std::string> extras = app.remaining(true);
  const std::string what = extras.empty() ? std::string("something") : "'" + extras.front() + "'";
  const std::string word = app.get_subcommands().empty() ? "" : app.get_subcommands().front()->get_name() + " ";
  return what + (platform::BeginsWith(what, "'-") ? " is no option of this command" : " is one argument too many") +
         ". kestrava " + word + "--help tells what there is";
}

bool IsQuestion(std::string_view argument) {
  return argument == "--help" || argument == "-h" || argument == "--version" || argument == "-v";
}

}  // namespace

bool IsForTerminal(const std::vector<std::string>& arguments) {
  return std::any_of(arguments.begin(), arguments.end(), IsQuestion) || !FirstWord(arguments).empty() ||
         !WrongWindowOption(arguments).empty();
}

std::variant<Request, ReadyAnswer> ParseArguments(const std::vector<std::string>& arguments) {
  const bool asksFirst = std::any_of(arguments.begin(), arguments.end(), IsQuestion);
  if (!asksFirst) RefuseUnknown(arguments);
  Grammar grammar;
  try {
    grammar.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    return ReadyAnswer{WrappedHelp(grammar.App().help())};
  } catch (const CLI::CallForVersion&) {
    return ReadyAnswer{"Kestrava " + platform::LongVersion() + "\n"};
  } catch (const CLI::ExtrasError&) {
    throw WrongUse(TooMany(grammar.App()));
  } catch (const CLI::ParseError& error) {
    throw WrongUse(error.what());
  }
  const WordName* word = WordOf(grammar.App().get_subcommands().front()->get_name());
  return RequestOf(grammar.Values(), word->word);
}

}  // namespace kestrava::cli
