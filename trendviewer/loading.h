// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"
#include "platform/database.h"
#include "platform/date.h"
#include "platform/locale.h"
#include "platform/rowset.h"
#include "trendviewer/clsgrafico.h"

#include <array>
#include <memory>
#include <stop_token>
#include <string>

namespace velt {

/// The samples of trend `table` from `start` to `end`. The name stands in the statement as it is.
[[nodiscard]] VELT_API std::string CreaQuery(clsDatabase& database, const std::string& table,
                                             const Date& start, const Date& end);

/// An open connection to a station's database.
[[nodiscard]] VELT_API std::shared_ptr<Connection> apriDatabase(clsDatabase& database,
                                                                const std::string& path);

/// The rows of a trend, null when its table does not exist. The description of an error names the
/// table. A name with a blank is refused: the word behind the blank would be read as another name
/// for the table of the first word, whose data would then be shown under the wrong name.
[[nodiscard]] VELT_API std::shared_ptr<const RowSet> leggiTrend(
    clsDatabase& database, clsRecordset& recordsets, const std::shared_ptr<Connection>& connection,
    const std::string& table, const Date& start, const Date& end);

/// What is to become of the rows of the pens. Owns all it touches: run() may be called on any
/// thread.
struct TrendLoading {
    clsGrafico grafico;  ///< in: the pens; out: their samples, and the time base
    std::string stazione;
    std::array<std::shared_ptr<const RowSet>, ChartSeriesCount> rows;
    Date start;
    Date end;
    int divisions = 4;
    Locale locale;
    std::shared_ptr<const ChartContents> contents;  ///< out

    /// RuntimeError 6 when the window is longer than 32 bits of seconds. Stopped, it leaves
    /// `contents` null.
    void run(const std::stop_token& stop = {});
};

}  // namespace velt
