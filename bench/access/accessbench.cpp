// SPDX-License-Identifier: MIT
// Times the statements of the alarm viewer on a large alarm history, and the memory that a
// recordset of all its rows takes.
//
//   access_bench [FILE [RUNS]]
//
// FILE (default: allarmi-bench.mdb in the temporary folder) is made when it does not exist: a
// million alarms of two years as the demo installation makes them.
#include "adapters/access/accessdatabase.h"
#include "bench/measure.h"
#include "demo/alarmdatabase.h"
#include "platform/runtimeerror.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace velt;

constexpr int Alarms = 1'000'000;
constexpr const char* AllRows =
    "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";

/// Seconds on the wall and of the processor: the two differ on a machine that does other things.
struct Times {
    template <typename Step>
    void add(Step&& step) {
        const auto start = bench::SteadyClock::now();
        const double before = bench::processorTime();
        step();
        wall.push_back(bench::since(start) / 1000);
        processor.push_back((bench::processorTime() - before) / 1000);
    }
    void print() const {
        std::printf("  median %.3f s (processor %.3f s)", bench::median(wall),
                    bench::median(processor));
    }
    std::vector<double> wall, processor;
};

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
    const long before = bench::residentKiB();
    const auto kept = opened(database, path, AllRows);
    std::printf("%-42s %8.1f MB more (target 100)\n", "memory of a recordset of all rows",
                static_cast<double>(bench::residentKiB() - before) * 1.024e-3);

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
        Times times;
        std::int32_t rows = 0;
        for (int i = 0; i < runs; ++i) {
            std::shared_ptr<Recordset> recordset;
            times.add([&] { recordset = opened(database, path, query.statement); });
            rows = recordset->RecordCount();
        }
        std::printf("%-42s %8d rows", query.what, rows);
        times.print();
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
            Times time;
            time.add([&] { demo::AlarmDatabase::create(path, alarms); });
            std::printf("%-42s %8zu rows", "written", alarms.size());
            time.print();
            std::printf("\n");
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
