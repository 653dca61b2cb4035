// SPDX-License-Identifier: MIT
// Times the statements of the alarm viewer on a large alarm history, and the memory that a
// recordset of all its rows takes.
//
//   access_bench [FILE [RUNS]]
//
// FILE (default: allarmi-bench.mdb in the temporary folder) is made when it does not exist: a
// million alarms of two years as the demo installation makes them.
#include "adapters/access/accessdatabase.h"
#include "demo/alarmdatabase.h"
#include "platform/runtimeerror.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace velt;

constexpr int Alarms = 1'000'000;
constexpr const char* AllRows =
    "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";

/// Seconds on the wall and of the processor: the two differ on a machine that does other things.
struct Time {
    double wall = 0;
    double cpu = 0;
};

template <typename Step>
Time timed(Step&& step) {
    const auto start = std::chrono::steady_clock::now();
    const std::clock_t cpuStart = std::clock();
    step();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC};
}

double median(std::vector<Time> times, double Time::*part) {
    std::ranges::sort(times, {}, part);
    return times[times.size() / 2].*part;
}

double megabytes() {
    std::ifstream status("/proc/self/statm");
    double size = 0;
    double resident = 0;
    status >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

std::shared_ptr<Recordset> opened(clsDatabase& database, const std::string& path,
                                  const std::string& statement) {
    const auto connection = database.GetConnection(path, "", "", 60, 3, 3);
    auto recordset = database.CreateRecordset();
    recordset->CursorLocation(ado::UseClient);
    recordset->Open(statement, connection, ado::OpenStatic, ado::LockReadOnly,
                    ado::OptionsUnspecified);
    return recordset;
}

struct Timed {
    const char* what;
    double target;
    std::string statement;
};

void run(const std::string& path, int runs) {
    InlineDispatcher dispatcher;
    access::AccessDatabase database(dispatcher);

    // First of all, for the memory of later queries would be used again.
    const double before = megabytes();
    const auto kept = opened(database, path, AllRows);
    const double after = megabytes();
    std::printf("%-42s %8.1f MB more (target 100)\n", "memory of a recordset of all rows",
                after - before);

    const std::string days =
        database.DateCondition("Data", true, Date::fromFields({2025, 6, 1, 7, 30, 0, 0}), true,
                               Date::fromFields({2025, 7, 31, 7, 30, 0, 0}));
    const std::string columns = "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ";
    const Timed queries[] = {
        {"stations", 0.2, "SELECT VRX From Allarmi GROUP BY VRX ORDER BY VRX"},
        {"alarms", 0.2, "SELECT Allarme FROM Allarmi GROUP BY Allarme ORDER BY Allarme"},
        {"one station, three alarms, 60 days", 0.15,
         columns + "WHERE (" + days +
             " AND ((Allarme = 'Livello alto') OR (Allarme = 'Torbidità alta') OR"
             " (Allarme = 'Guasto sonda')) AND ((VRX = 'RTU03'))) ORDER BY Data"},
        {"60 days", 0, columns + "WHERE (" + days + ") ORDER BY Data"},
        {"four stations, all days", 0,
         columns + "WHERE (((VRX = 'RTU01') OR (VRX = 'RTU03') OR (VRX = 'RTU05') OR"
                   " (VRX = 'RTU07'))) ORDER BY Data"},
        {"all rows in order of date", 1.0, AllRows},
        {"all rows, the newest first", 0, std::string(AllRows) + " DESC"},
        {"all rows in order of alarm", 0, columns + "ORDER BY Allarme"},
        {"count by station", 0, "SELECT VRX, Count(*) FROM Allarmi GROUP BY VRX"},
    };
    for (const Timed& query : queries) {
        std::vector<Time> times;
        std::int32_t rows = 0;
        for (int i = 0; i < runs; ++i) {
            std::shared_ptr<Recordset> recordset;
            times.push_back(timed([&] { recordset = opened(database, path, query.statement); }));
            rows = recordset->RecordCount();
        }
        std::printf("%-42s %8d rows  median %.3f s (processor %.3f s)", query.what, rows,
                    median(times, &Time::wall), median(times, &Time::cpu));
        if (query.target > 0) std::printf("  target %.2f", query.target);
        std::printf("\n");
    }
}

}  // namespace

int main(int count, char** arguments) {
    try {
        const std::string path =
            count > 1 ? arguments[1]
                      : (std::filesystem::temp_directory_path() / "allarmi-bench.mdb").string();
        if (!std::filesystem::exists(path)) {
            std::vector<demo::Alarm> alarms =
                demo::AlarmGenerator(1).history(Date::fromFields({2024, 1, 1, 0, 0, 0, 0}),
                                                Date::fromFields({2026, 1, 1, 0, 0, 0, 0}), Alarms);
            const Time time = timed([&] { demo::AlarmDatabase::create(path, alarms); });
            std::printf("%-42s %8zu rows  %.3f s (processor %.3f s)\n", "written", alarms.size(),
                        time.wall, time.cpu);
            alarms = {};
            malloc_trim(0);
        }
        run(path, count > 2 ? std::max(1, std::atoi(arguments[2])) : 7);
    } catch (const velt::RuntimeError& error) {
        std::fprintf(stderr, "%d: %s\n", error.Number(), error.what());
        return 1;
    }
    return 0;
}
