// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartdrawing.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace velt::ui {

/// What is told of one pen about what is in view.
struct SummaryRow {
    std::size_t series = 0;
    QString name;  ///< with its description
    QString minimum;
    QString maximum;
    QString mean;  ///< weighted by time
    QString last;
    QString unit;
    /// In the order of summaryHeads().
    [[nodiscard]] QStringList texts() const {
        return {QString::number(series + 1), name, minimum, maximum, mean, last, unit};
    }
};

/// Heads of the columns of a summary.
[[nodiscard]] QStringList summaryHeads();
/// The column that gets the room that the others leave.
inline constexpr int SummaryNameColumn = 1;
[[nodiscard]] constexpr bool isSummaryNumber(int column) { return column >= 2 && column <= 5; }

/// One row for every pen with a trend that is to be seen; one without samples in view has "-".
[[nodiscard]] std::vector<SummaryRow> summaryOf(const ChartDrawing& drawing);

}  // namespace velt::ui
