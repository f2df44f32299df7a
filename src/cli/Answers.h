// The commands. Each writes its answer, and throws NotFound where there is none; what csv and json have then (a head,
// an empty list) is written all the same.
#pragma once

#include <ostream>

#include "Request.h"
#include "Station.h"

namespace kestrava::cli {

void AnswerPasses(Station& station, const Request& request, std::ostream& out);
void AnswerJob(Station& station, const Request& request, std::ostream& out);
void AnswerJobs(Station& station, const Request& request, std::ostream& out);
void AnswerNext(Station& station, const Request& request, std::ostream& out);
void AnswerWhere(Station& station, const Request& request, std::ostream& out);
void AnswerList(Station& station, const Request& request, std::ostream& out);

/// Records in one of the forms that are no calendar.
void WriteRecords(std::ostream& out, Format format, const Frame& frame, const Records& records);

}  // namespace kestrava::cli
