// SPDX-License-Identifier: MIT
// Writes a million alarms, then reads them with the Jet reader, with mdb-export and as bare bytes.
// All reading is from the page cache. Prints medians and the ratios that are aimed at.
//   jet_bench [ROWS [RUNS]]
#include "adapters/access/jet/cursor.h"
#include "adapters/access/jet/writer.h"
#include "bench/measure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace velt;
using jet::ColumnType;

double medianSeconds(int runs, const std::function<void()>& action) {
    std::vector<double> seconds;
    for (int i = 0; i < runs; ++i) {
        const auto start = bench::SteadyClock::now();
        action();
        seconds.push_back(bench::since(start) / 1000);
    }
    return bench::median(seconds);
}

/// Alarms of 8 stations with 25 names and 400 descriptions, one every 20 seconds.
void writeAlarms(const std::filesystem::path& path, int rows) {
    const std::vector<jet::ColumnDefinition> columns{{"Data", ColumnType::Date},
                                                     {"VRX", ColumnType::Text, 50},
                                                     {"Allarme", ColumnType::Text, 100},
                                                     {"Descrizione", ColumnType::Text, 255},
                                                     {"Evento", ColumnType::Text, 50}};
    std::vector<std::string> names;
    std::vector<std::string> descriptions;
    for (int i = 0; i < 25; ++i) names.push_back("Allarme di livello " + std::to_string(i));
    for (int i = 0; i < 400; ++i)
        descriptions.push_back("Superata la soglia nella vasca " + std::to_string(i));
    const std::array<std::string, 3> events{"Attivato", "Disattivato", "Riconosciuto"};

    std::filesystem::remove(path);
    jet::Writer writer = jet::Writer::create(path);
    writer.createTable("Allarmi", columns);
    std::uint32_t random = 1;
    std::array<Variant, 5> row;
    for (int i = 0; i < rows; ++i) {
        random = random * 1664525 + 1013904223;
        row[0] = Date(38718.0 + i / 4320.0);
        row[1] = "RTU0" + std::to_string(1 + (random >> 8) % 8);
        row[2] = names[(random >> 12) % names.size()];
        row[3] = descriptions[(random >> 16) % descriptions.size()];
        row[4] = events[(random >> 4) % events.size()];
        writer.append("Allarmi", row);
    }
    writer.flush();
}

void readBytes(const std::filesystem::path& path) {
    static std::vector<char> piece(std::size_t{256} * 1024);
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    while (::read(file, piece.data(), piece.size()) > 0) {
    }
    ::close(file);
}

/// Date and four texts of every row; the sum keeps the work from being left out.
std::uint64_t readAlarms(const std::filesystem::path& path) {
    std::uint64_t sum = 0;
    jet::Cursor rows(jet::Database::open(path)->table("Allarmi"));
    while (rows.next()) {
        sum += static_cast<std::uint64_t>(rows.real(0));
        for (int i = 1; i < 5; ++i) sum += rows.text(i).size();
    }
    return sum;
}

void report(const char* what, double seconds) { std::printf("%-34s %8.3f s\n", what, seconds); }

void run(int rows, int runs) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("jet_bench-" + std::to_string(::getpid()));
    report("write", medianSeconds(runs, [&] { writeAlarms(path, rows); }));
    std::printf("%d rows, %.1f MB\n", rows,
                static_cast<double>(std::filesystem::file_size(path)) / 1e6);

    std::uint64_t sum = 0;
    const double bytes = medianSeconds(runs, [&] { readBytes(path); });
    const double reader = medianSeconds(runs, [&] { sum += readAlarms(path); });
    report("read bytes", bytes);
    report("read five columns", reader);
    std::printf("%-34s %8.1f times the bytes (at most 15)\n", "", reader / bytes);

    if (std::system("mdb-export --version >/dev/null 2>&1") == 0) {
        const std::string command = "mdb-export '" + path.string() + "' Allarmi >/dev/null";
        const double other = medianSeconds(
            std::min(runs, 3), [&] { sum += static_cast<unsigned>(std::system(command.c_str())); });
        report("mdb-export", other);
        std::printf("%-34s %8.1f times faster (at least 8)\n", "", other / reader);
    } else {
        std::printf("mdb-export is not installed\n");
    }
    std::filesystem::remove(path);
    std::printf("(%llu)\n", static_cast<unsigned long long>(sum));
}

}  // namespace

int main(int count, char** arguments) {
    try {
        run(count > 1 ? std::atoi(arguments[1]) : 1'000'000,
            count > 2 ? std::atoi(arguments[2]) : 5);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
