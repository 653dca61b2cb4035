// SPDX-License-Identifier: MIT
#include "trendviewer/clsgrafico.h"

#include "platform/conversions.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <limits>

namespace velt {
namespace {

template <typename Pens>
auto& penAt(Pens& pens, int index) {
    if (index < 0 || index >= clsGrafico::Penne)
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return pens[static_cast<std::size_t>(index)];
}

/// Of a chart without a detected one.
std::int16_t periodoPredefinito(std::int32_t seconds) {
    constexpr std::int32_t Longest = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(seconds / MaxPuntiGrafico, 1, Longest));
}

}  // namespace

std::int16_t PuntiGrafico(std::int32_t seconds, std::int16_t period) {
    if (period == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    const double quotient = static_cast<double>(seconds) / period;
    return conversions::roundToInt16(std::min<double>(quotient, MaxPuntiGrafico));
}

BaseTempi calcolaBaseTempi(std::int32_t seconds, std::int16_t period) {
    const std::int16_t points = std::max(PuntiGrafico(seconds, period), std::int16_t{1});
    return {points, static_cast<double>(seconds) / points};
}

clsPenna& clsGrafico::Penna(int index) { return penAt(pens_, index); }
const clsPenna& clsGrafico::Penna(int index) const { return penAt(pens_, index); }

int clsGrafico::NumeroPenneSelezionate() const {
    return static_cast<int>(std::ranges::count_if(pens_, &clsPenna::Selezionata));
}

void clsGrafico::Lunghezza(std::int32_t seconds) {
    std::int16_t shortest = 0;
    for (const clsPenna& pen : pens_) {
        const bool counts = pen.Selezionata && pen.PeriodoCampionamento > 0;
        if (counts && (shortest == 0 || pen.PeriodoCampionamento < shortest))
            shortest = pen.PeriodoCampionamento;
    }
    period_ = shortest > 0 ? shortest : periodoPredefinito(seconds);
    base_ = calcolaBaseTempi(std::max(seconds, 0), period_);
}

}  // namespace velt
