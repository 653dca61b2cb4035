// SPDX-License-Identifier: MIT
#include "adapters/access/accessdatabase.h"
#include "panel/velt/command.h"
#include "panel/velt/output.h"
#include "panel/velt/texttable.h"
#include "panel/velt/trendpicture.h"
#include "panel/velt/valuetext.h"
#include "platform/isodate.h"
#include "platform/runtimeerror.h"
#include "trendviewer/intervalli.h"
#include "trendviewer/loading.h"
#include "trendviewer/samplecsv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <iostream>

namespace velt::cli {

extern const Command trendCommand;

namespace {

constexpr std::array options = {Option{"--from", true}, Option{"--to", true}, Option{"--csv"},
                                Option{"--png", true}, Option{"--size", true}};

constexpr std::string_view help =
    R"(Usage: velt trend FILE TREND --from WHEN --to WHEN [--csv | --png PICTURE]

Loads the samples of a trend from a station's database, as the trend viewer
does, and tells what it found. TREND is the name of its table.

Options:
  --from WHEN     the first moment, "2006-03-14", "2006-03-14 07:30" or
                  "2006-03-14 07:30:15"
  --to WHEN       the last moment, included
  --csv           writes every sample: UTF-8 with mark, ";" between the fields
                  and "," as decimal sign, as spreadsheets in Italy read it
  --png PICTURE   draws the chart into a file
  --size WxH      of the picture in pixels; default 1200x700
  --help          show this text

Examples:
  velt trend RTU01.MDB Livello --from 2006-03-14 --to "2006-03-14 23:59:59"
  velt trend RTU01.MDB Livello --from 2006-01-01 --to 2006-04-01 --png livello.png
)";

Date moment(const CommandLine& line, std::string_view option) {
    if (!line.has(option)) throw UsageError(std::string(option) + " is needed");
    std::string text = line.value(option);
    constexpr std::string_view Whole = "0000-00-00 00:00:00";
    if (text.size() > 10 && text[10] == 'T') text[10] = ' ';
    if (text.size() == 10 || text.size() == 16) text += Whole.substr(text.size());
    const auto date = fromIsoText(text);
    if (!date) throw UsageError(std::string(option) + " needs a date like \"2006-03-14 07:30\"");
    return *date;
}

PictureSize pictureSize(const CommandLine& line) {
    PictureSize size;
    if (!line.has("--size")) return size;
    const std::string text = line.value("--size");
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, size.width);
    const bool hasX = width.ptr != end && *width.ptr == 'x';
    const auto height =
        hasX ? std::from_chars(width.ptr + 1, end, size.height) : std::from_chars_result{};
    const auto fits = [](int pixels) { return pixels >= 100 && pixels <= 10000; };
    if (!hasX || height.ptr != end || !fits(size.width) || !fits(size.height))
        throw UsageError("--size needs a width and a height from 100 to 10000, like 1200x700");
    return size;
}

/// As the range list has them for a window of this length.
int divisionsOf(const Date& start, const Date& end) {
    constexpr int Usual = 6;
    const auto length = secondsBetween(start, end);
    const auto ranges = static_cast<std::int16_t>(testiIntervallo().size());
    for (std::int16_t i = 0; i < ranges; ++i)
        if (SecondiIntervallo(i) == length) return DivisioniIntervallo(i);
    return Usual;
}

TrendLoading load(const std::string& path, const std::string& trend, const Date& start,
                  const Date& end) {
    InlineDispatcher dispatcher;
    std::uint64_t unreadable = 0;
    access::AccessDatabase database(
        dispatcher, [&](const std::string&, std::uint64_t rows) { unreadable += rows; });
    clsRecordset recordsets;
    const auto rows =
        leggiTrend(database, recordsets, apriDatabase(database, path), trend, start, end);
    if (!rows) throw RuntimeError(ErrorNumber::UnknownTable, path + " has no table " + trend);
    if (unreadable > 0)
        std::cerr << "velt: warning: " << rowsText(unreadable)
                  << " could not be read and are missing\n";

    TrendLoading loading;
    loading.stazione = std::filesystem::path(path).stem().string();
    loading.grafico.Penna(0).Selezionata = true;
    loading.grafico.Penna(0).NomeTrend = trend;
    loading.rows[0] = rows;
    loading.start = start;
    loading.end = end;
    loading.divisions = divisionsOf(start, end);
    loading.run();
    return loading;
}

std::string summary(const TrendLoading& loading) {
    const ChartSeries& series = loading.contents->series[0];
    const auto date = [](ChartTime time) { return isoText(Date::fromMilliseconds(time)); };
    const std::string name = printable(series.name);
    const ChartSamples& samples = *series.samples;
    std::string text = name + ": " + rowsText(samples.times.size()) + '\n';
    if (samples.times.empty()) return text;
    text +=
        "    first " + date(samples.times.front()) + ", last " + date(samples.times.back()) + '\n';
    if (const int period = loading.grafico.Penna(0).PeriodoCampionamento; period > 0)
        text += "    one every " + std::to_string(period) + " s\n";
    const ChartStatistics& found = series.curve->statistics;
    if (found.count < samples.times.size())
        text += "    without a number: " + rowsText(samples.times.size() - found.count) + '\n';
    if (found.count == 0) return text;
    return text + "    minimum " + valueText(found.minimum) + ", maximum " +
           valueText(found.maximum) + ", mean " + valueText(found.mean) + ", last " +
           valueText(found.last) + '\n';
}

void run(const CommandLine& line) {
    if (line.operands().size() != 2) throw UsageError("a FILE and a TREND are needed");
    if (line.has("--csv") && line.has("--png"))
        throw UsageError("--csv and --png exclude each other");
    if (line.has("--size") && !line.has("--png")) throw UsageError("--size goes with --png");
    const Date start = moment(line, "--from");
    const Date end = moment(line, "--to");
    if (end < start) throw UsageError("--to is before --from");
    const PictureSize size = pictureSize(line);
    const TrendLoading loading = load(line.operands()[0], line.operands()[1], start, end);

    if (line.has("--png")) {
        saveTrendPicture(loading.contents, size, line.value("--png"));
        return;
    }
    Output output;
    if (line.has("--csv"))
        writeSampleCsv(*loading.contents, {true}, [&output](std::string_view piece) {
            output.write(piece);
            return true;
        });
    else
        output.write(summary(loading));
    output.finish();
}

}  // namespace

constexpr Command trendCommand{"trend", "load, export or draw a trend of a station", help, options,
                               run};

}  // namespace velt::cli
