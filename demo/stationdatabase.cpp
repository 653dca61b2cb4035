// SPDX-License-Identifier: MIT
#include "demo/stationdatabase.h"

#include "adapters/access/jet/cursor.h"
#include "adapters/access/jet/database.h"
#include "adapters/access/jet/writer.h"
#include "demo/plantcourse.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <system_error>

namespace velt::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t Minute = 60'000;  // ms
constexpr std::int64_t Day = 24 * 60 * Minute;

/// Appends the samples after `last` up to `end`, both in milliseconds.
void appendSamples(jet::Writer& writer, const PlantVariable& trend, std::int64_t last,
                   std::int64_t end) {
    std::array<Variant, 2> row;
    for (std::int64_t at = last - last % Minute + Minute; at <= end; at += Minute) {
        if (!isRecorded(trend, at)) continue;
        row = {Date::fromMilliseconds(at), analogAt(trend, at, Minute)};
        writer.append(trend.trend, row);
    }
}

/// The time of the newest sample.
std::int64_t lastSample(jet::Database& database, const PlantVariable& trend,
                        std::int64_t fallback) {
    jet::Cursor cursor(database.table(trend.trend));
    std::int64_t last = fallback;
    while (cursor.next()) last = std::max(last, Date(cursor.real(0)).milliseconds());
    return last;
}

void create(const fs::path& file, const std::vector<PlantVariable>& trends, std::int64_t start,
            std::int64_t end) {
    const std::array<jet::ColumnDefinition, 2> columns = {{
        {"Data", jet::ColumnType::Date},
        {"Valore", jet::ColumnType::Double},
    }};
    const fs::path unfinished = file.string() + ".new";
    std::error_code error;
    fs::remove(unfinished, error);  // of a download that was interrupted
    {
        jet::Writer writer = jet::Writer::create(unfinished);
        for (const PlantVariable& trend : trends) {
            writer.createTable(trend.trend, columns);
            appendSamples(writer, trend, start, end);
        }
        writer.flush();
    }
    fs::rename(unfinished, file, error);
    if (error)
        throw RuntimeError(ErrorNumber::PathAccess,
                           "Impossibile creare " + file.string() + ": " + error.message());
}

}  // namespace

std::vector<PlantVariable> trendsOf(const PlantStation& station) {
    std::vector<PlantVariable> trends;
    std::ranges::copy_if(station.variables, std::back_inserter(trends),
                         [](const PlantVariable& v) { return !v.trend.empty(); });
    std::ranges::stable_sort(trends, {}, &PlantVariable::trendGroup);
    return trends;
}

void updateStationDatabase(const fs::path& file, const PlantStation& station, const Date& now,
                           int days) {
    const std::vector<PlantVariable> trends = trendsOf(station);
    const std::int64_t end = now.milliseconds();
    const std::int64_t start = end - days * Day;
    if (!fs::exists(file)) {
        create(file, trends, start, end);
        return;
    }
    // All are read before the first is written: a file that lacks a table is left as it is.
    std::vector<std::int64_t> last;
    {
        const auto database = jet::Database::open(file);
        for (const PlantVariable& trend : trends)
            last.push_back(lastSample(*database, trend, start));
    }
    jet::Writer writer = jet::Writer::open(file);
    for (std::size_t i = 0; i < trends.size(); ++i) appendSamples(writer, trends[i], last[i], end);
    writer.flush();
}

}  // namespace velt::demo
