// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/export.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace velt {

/// Sampling period in seconds: the spacing that comes six times in a row, looked for from the
/// newest sample backwards (`times` ascend). 0 when there is none, with fewer than 11 samples, or
/// when the spacing does not fit 16 bits.
[[nodiscard]] VELT_API std::int16_t CalcolaPeriodoCamp(std::span<const ChartTime> times);

/// One pen of a trend viewer: a trend of the selected station and the samples loaded last.
struct clsPenna {
    bool Selezionata = false;  ///< a trend is chosen for it
    bool Visibile = true;
    std::string NomeTrend;  ///< also the table in the station's database
    std::string Descrizione;
    std::string UdM;                               ///< unit of measure
    std::shared_ptr<const ChartSamples> Campioni;  ///< null when there are none
    std::int16_t PeriodoCampionamento = 0;         ///< seconds; 0 when not detected
};

}  // namespace velt
