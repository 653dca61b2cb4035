// SPDX-License-Identifier: MIT
#pragma once

#include "platform/database.h"
#include "platform/date.h"
#include "platform/export.h"
#include "platform/widgets.h"

#include <string>
#include <vector>

/// The statements that the alarm viewer sends. Pure functions of the filter state.
namespace velt {

inline constexpr const char* StationListQuery = "SELECT VRX From Allarmi GROUP BY VRX ORDER BY VRX";
inline constexpr const char* AlarmListQuery =
    "SELECT Allarme FROM Allarmi GROUP BY Allarme ORDER BY Allarme";

/// The state of the filter widgets.
struct AlarmFilter {
    bool startEnabled = false;
    Date start;
    bool endEnabled = false;
    Date end;
    bool alarmEnabled = false;
    std::string alarm;                  ///< text of the alarm list
    std::vector<std::string> stations;  ///< texts of the checked stations, in list order
};

/// The data query for a filter; `database` words the date and the alarm condition.
[[nodiscard]] VELT_API std::string ComponiSQL(const AlarmFilter& filter, clsDatabase& database);

/// Condition that `field` is one of `values`; "" without values. The values are inserted as they
/// stand, quotes included: they come from the same column of the same file.
[[nodiscard]] VELT_API std::string anyOf(const std::string& field,
                                         const std::vector<std::string>& values);
/// anyOf the checked rows of a station list.
[[nodiscard]] VELT_API std::string CondizioneRTU(const std::string& field, const ListView& list);
/// anyOf the selected rows of a plain list box.
[[nodiscard]] VELT_API std::string CondizioneLista(const std::string& field, const ListBox& list);

/// Texts of the checked rows, in list order.
[[nodiscard]] VELT_API std::vector<std::string> checkedTexts(const ListView& list);

}  // namespace velt
