// SPDX-License-Identifier: MIT
#include "demo/alarmdatabase.h"

#include "platform/runtimeerror.h"

#include <array>
#include <system_error>

namespace velt::demo {
namespace {

constexpr const char* Table = "Allarmi";

void appendTo(jet::Writer& writer, const Alarm& alarm) {
    const std::array<Variant, 5> row = {alarm.time, alarm.station, alarm.name, alarm.description,
                                        alarm.event};
    writer.append(Table, row);
}

}  // namespace

void AlarmDatabase::create(const std::filesystem::path& path, std::span<const Alarm> alarms) {
    const std::array<jet::ColumnDefinition, 5> columns = {{
        {"Data", jet::ColumnType::Date},
        {"VRX", jet::ColumnType::Text, 50},
        {"Allarme", jet::ColumnType::Text, 100},
        {"Descrizione", jet::ColumnType::Text, 255},
        {"Evento", jet::ColumnType::Text, 50},
    }};
    const std::filesystem::path unfinished = path.string() + ".new";
    std::error_code error;
    std::filesystem::remove(unfinished, error);  // of a start that was interrupted
    {
        jet::Writer writer = jet::Writer::create(unfinished);
        writer.createTable(Table, columns);
        for (const Alarm& alarm : alarms) appendTo(writer, alarm);
        writer.flush();
    }
    std::filesystem::rename(unfinished, path, error);
    if (error)
        throw RuntimeError(ErrorNumber::PathAccess,
                           "Impossibile creare " + path.string() + ": " + error.message());
}

AlarmDatabase::AlarmDatabase(const std::filesystem::path& path)
    : writer_(jet::Writer::open(path)) {}

void AlarmDatabase::append(const Alarm& alarm) {
    appendTo(writer_, alarm);
    writer_.flush();
}

}  // namespace velt::demo
