// SPDX-License-Identifier: MIT
#include "adapters/access/distinctquery.h"

#include <gtest/gtest.h>

namespace velt::access {
namespace {

// Taken for one of these, another statement would be answered wrongly; not taken, slowly.
TEST(DistinctQuery, IsRecognised) {
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT VRX From Allarmi GROUP BY VRX ORDER BY VRX", "Allarmi.VRX up"},
        {"SELECT [a b] FROM [c d] GROUP BY [a b];", "c d.a b up"},
        {"SELECT DISTINCT VRX FROM Allarmi ORDER BY VRX DESC", "Allarmi.VRX down"},
        {"SELECT VRX FROM Allarmi ORDER BY VRX", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY Allarme", "-"},
        {"SELECT VRX, Data FROM Allarmi GROUP BY VRX, Data", "-"},
        {"SELECT VRX FROM Allarmi WHERE VRX > 'a' GROUP BY VRX", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY VRX HAVING Count(*) > 1", "-"},
        {"SELECT VRX FROM Allarmi GROUP BY VRX ORDER BY Data", "-"},
        {"SELECT DISTINCT VRX FROM Allarmi, Altri", "-"},
        {"SELECT DISTINCT VRX FROM Allarmi UNION SELECT VRX FROM Altri", "-"},
        {"SELECT DISTINCT VRX AS Nome FROM Allarmi", "-"},
    };
    for (const auto& [statement, expected] : cases) {
        const auto query = recogniseDistinct(tokenize(statement));
        const std::string read =
            query ? query->table + "." + query->column + (query->descending ? " down" : " up")
                  : "-";
        EXPECT_EQ(read, expected) << statement;
    }
}

}  // namespace
}  // namespace velt::access
