// SPDX-License-Identifier: MIT
// Writes the seed corpus of jet_reader_fuzz into a folder.
#include "tests/adapters/access/jet/everytype.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace velt;
using jet::ColumnType;
using jet::test::Row;

/// The alarm history as panels read it.
void writeAlarms(const std::filesystem::path& path, jet::Version version) {
    const std::vector<jet::ColumnDefinition> columns{{"Data", ColumnType::Date},
                                                     {"VRX", ColumnType::Text, 20},
                                                     {"Allarme", ColumnType::Text, 60},
                                                     {"Descrizione", ColumnType::Text, 120},
                                                     {"Evento", ColumnType::Text, 20}};
    std::vector<Row> rows;
    for (int i = 0; i < 120; ++i)
        rows.push_back({Date(38718.0 + i / 24.0), "RTU0" + std::to_string(i % 8),
                        i % 5 == 0 ? Variant("Pressione è bassa") : Variant("Livello"),
                        i % 7 == 0 ? Variant(Null{}) : Variant("Serbatoio " + std::to_string(i)),
                        std::string(i % 2 == 0 ? "ON" : "OFF")});
    jet::Writer writer = jet::Writer::create(path, version);
    jet::test::writeTable(writer, "Allarmi", columns, rows);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
        return 2;
    }
    try {
        const std::filesystem::path folder(arguments[1]);
        std::filesystem::create_directories(folder);
        for (const jet::Version version : {jet::Version::Jet3, jet::Version::Jet4}) {
            const std::string suffix = version == jet::Version::Jet3 ? "-jet3.mdb" : "-jet4.mdb";
            for (const char* name : {"every", "alarms"})
                std::filesystem::remove(folder / (name + suffix));
            jet::test::writeEveryType(folder / ("every" + suffix), version);
            writeAlarms(folder / ("alarms" + suffix), version);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
