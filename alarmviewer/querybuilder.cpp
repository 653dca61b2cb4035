// SPDX-License-Identifier: MIT
#include "alarmviewer/querybuilder.h"

namespace velt {

std::string ComponiSQL(const AlarmFilter& filter, clsDatabase& database) {
    std::string sql = "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi";

    std::string conditions;
    const auto add = [&conditions](const std::string& condition) {
        if (condition.empty()) return;
        if (!conditions.empty()) conditions += " AND ";
        conditions += condition;
    };
    add(database.DateCondition("Data", filter.startEnabled, filter.start, filter.endEnabled,
                               filter.end));
    if (filter.alarmEnabled && !filter.alarm.empty())
        add(database.FieldCondition("Allarme", filter.alarm));
    add(anyOf("VRX", filter.stations));

    if (!conditions.empty()) sql += " WHERE (" + conditions + ")";
    return sql + " ORDER BY Data";
}

std::string anyOf(const std::string& field, const std::vector<std::string>& values) {
    std::string condition;
    for (const std::string& value : values) {
        condition += condition.empty() ? "(" : " OR ";
        condition.append("(").append(field).append(" = '").append(value).append("')");
    }
    return condition.empty() ? condition : condition + ")";
}

std::vector<std::string> checkedTexts(const ListView& list) {
    std::vector<std::string> texts;
    for (int row = 1; row <= list.Count(); ++row)
        if (list.Checked(row)) texts.push_back(list.Text(row));
    return texts;
}

std::string CondizioneRTU(const std::string& field, const ListView& list) {
    return anyOf(field, checkedTexts(list));
}

std::string CondizioneLista(const std::string& field, const ListBox& list) {
    std::vector<std::string> texts;
    for (int index = 0; index < list.ListCount(); ++index)
        if (list.Selected(index)) texts.push_back(list.List(index));
    return anyOf(field, texts);
}

}  // namespace velt
