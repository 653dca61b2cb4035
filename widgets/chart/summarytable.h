// SPDX-License-Identifier: MIT
#pragma once

#include <QTableWidget>

namespace velt::ui {

class TrendChart;

/// The figures of what a chart has in view, a row for each pen that is to be seen.
class SummaryTable : public QTableWidget {
    Q_OBJECT

public:
    /// Follows `chart`, which must live as long.
    explicit SummaryTable(const TrendChart& chart, QWidget* parent = nullptr);

private:
    void refresh();

    const TrendChart& chart_;
};

}  // namespace velt::ui
