// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/access/jet/writer.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace velt {

/// A download folder in a temporary place: the configuration file and station databases.
class StationFiles {
public:
    [[nodiscard]] std::string config() const { return (folder_ / "VeltRTU.ini").string(); }
    [[nodiscard]] std::string settings() const { return (folder_ / "panel.ini").string(); }
    [[nodiscard]] std::filesystem::path database(const std::string& station) const {
        return folder_ / (station + ".MDB");
    }
    void writeConfig(const std::string& text) const { test::writeBytes(config(), text); }

    /// Adds a table of samples (seconds from `start`, value) to a station's database, which is
    /// made when it is not there.
    void addTrend(const std::string& station, const std::string& table, const Date& start,
                  const std::vector<std::pair<double, Variant>>& samples,
                  jet::ColumnType type = jet::ColumnType::Double) const {
        // Tables can be added only to a file that is being made: all are written again.
        Table& added = tables_[station].emplace_back(Table{table, type, {}});
        for (const auto& [seconds, value] : samples)
            added.rows.push_back({start.addSeconds(seconds), value});
        std::filesystem::remove(database(station));
        jet::Writer writer = jet::Writer::create(database(station));
        for (const Table& each : tables_[station]) {
            const std::vector<jet::ColumnDefinition> columns = {{"Data", jet::ColumnType::Date},
                                                                {"Valore", each.type}};
            writer.createTable(each.name, columns);
            for (const auto& row : each.rows) writer.append(each.name, row);
        }
        writer.flush();
    }

private:
    struct Table {
        std::string name;
        jet::ColumnType type;
        std::vector<std::vector<Variant>> rows;
    };
    TempFolder folder_;
    mutable std::map<std::string, std::vector<Table>> tables_;
};

}  // namespace velt
