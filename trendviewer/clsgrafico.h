// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/export.h"
#include "trendviewer/clspenna.h"

#include <array>
#include <cstdint>

namespace velt {

/// A chart has no more points than this, however long its window is.
inline constexpr std::int16_t MaxPuntiGrafico = 1000;

/// How many points `seconds` at one per `period` are: rounded, half to even, and at most
/// MaxPuntiGrafico. RuntimeError 11 for a period of 0, RuntimeError 6 for a count below 16 bits.
[[nodiscard]] VELT_API std::int16_t PuntiGrafico(std::int32_t seconds, std::int16_t period);

/// The time base of a drawing: point i stands for the start + i * SecondiPerPunto.
struct BaseTempi {
    std::int16_t PuntiGrafico = 1;  ///< at least 1
    double SecondiPerPunto = 1;
};
/// RuntimeError 11 for a period of 0.
[[nodiscard]] VELT_API BaseTempi calcolaBaseTempi(std::int32_t seconds, std::int16_t period);

/// The chart of a trend viewer: its pens and its time base.
class VELT_API clsGrafico {
public:
    static constexpr int Penne = static_cast<int>(ChartSeriesCount);

    /// Pens count from 0; RuntimeError 9 beyond the last.
    [[nodiscard]] clsPenna& Penna(int index);
    [[nodiscard]] const clsPenna& Penna(int index) const;
    [[nodiscard]] int NumeroPenneSelezionate() const;

    /// Computes the time base for a window of `seconds` from the periods of the selected pens.
    void Lunghezza(std::int32_t seconds);
    /// Seconds: the shortest period detected among the selected pens; without any a thousandth of
    /// the window, at least 1.
    [[nodiscard]] std::int16_t PeriodoCampionamento() const { return period_; }
    [[nodiscard]] std::int16_t PuntiGrafico() const { return base_.PuntiGrafico; }
    [[nodiscard]] double SecondiPerPunto() const { return base_.SecondiPerPunto; }

private:
    std::array<clsPenna, ChartSeriesCount> pens_;
    std::int16_t period_ = 1;
    BaseTempi base_;
};

}  // namespace velt
