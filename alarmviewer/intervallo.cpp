// SPDX-License-Identifier: MIT
#include "alarmviewer/intervallo.h"

namespace velt {

void SalvaIntervallo(Settings* settings, const std::string& section, bool isStart,
                     const Date& startDate, bool isEnd, const Date& endDate) {
    if (!settings) return;
    const std::string previous = settings->Sezione();
    if (!settings->NomeFile().empty()) {
        settings->Sezione(section);
        settings->ScriviStringa("isStart", isStart ? "1" : "0");
        settings->ScriviStringa("isEnd", isEnd ? "1" : "0");
        settings->ScriviData("startDate", startDate);
        settings->ScriviData("endDate", endDate);
    }
    settings->Sezione(previous);
}

void LeggiIntervallo(Settings* settings, const std::string& section, bool& isStart, Date& startDate,
                     bool& isEnd, Date& endDate) {
    if (!settings) return;
    const std::string previous = settings->Sezione();
    if (!settings->NomeFile().empty()) {
        settings->Sezione(section);
        isStart = settings->LeggiIntero("isStart", 0) != 0;
        isEnd = settings->LeggiIntero("isEnd", 0) != 0;
        startDate = settings->LeggiData("startDate");
        endDate = settings->LeggiData("endDate");
    }
    settings->Sezione(previous);
}

}  // namespace velt
