#include "cli/Command.h"

#include <exception>
#include <variant>

#include "Answers.h"
#include "Arguments.h"
#include "Moments.h"

namespace kestrava::cli {

namespace {

void Answer(Station& station, const Request& request, std::ostream& out) {
  switch (request.word) {
    case Word::kPasses:
      return AnswerPasses(station, request, out);
    case Word::kNext:
      return AnswerNext(station, request, out);
    case Word::kWhere:
      return AnswerWhere(station, request, out);
    case Word::kList:
      return AnswerList(station, request, out);
    case Word::kJob:
      return AnswerJob(station, request, out);
    case Word::kJobs:
      return AnswerJobs(station, request, out);
  }
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments, const Machine& machine, std::ostream& out,
               std::ostream& err) {
  const auto tell = [&](const std::exception& why, int exitCode) {
    err << "kestrava: " << why.what() << '\n';
    return exitCode;
  };
  try {
    const auto parsed = ParseArguments(arguments);
    if (const auto* ready = std::get_if<ReadyAnswer>(&parsed)) {
      out << ready->text;
      return kAnswered;
    }
    const Request& request = std::get<Request>(parsed);
    ParseMoment(request.moment);  // a wrong date is told before anything else
    Station station(machine, request, err);
    Answer(station, request, out);
    return kAnswered;
  } catch (const WrongUse& why) {
    return tell(why, kWrongUse);
  } catch (const std::exception& why) {
    return tell(why, kNothingFound);
  }
}

}  // namespace kestrava::cli
