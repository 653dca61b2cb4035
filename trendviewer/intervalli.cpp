// SPDX-License-Identifier: MIT
#include "trendviewer/intervalli.h"

#include <array>
#include <cstddef>

namespace velt {
namespace {

struct Intervallo {
    const char* text;
    std::int32_t seconds;
    std::int16_t divisions;
};

constexpr std::int32_t Hour = 3600;
constexpr std::int32_t Day = 24 * Hour;

constexpr std::array<Intervallo, 13> Table = {{
    {"1 Ora", 1 * Hour, 4},
    {"2 Ore", 2 * Hour, 4},
    {"3 Ore", 3 * Hour, 6},
    {"4 Ore", 4 * Hour, 4},
    {"6 Ore", 6 * Hour, 6},
    {"12 Ore", 12 * Hour, 6},
    {"1 Giorno", 1 * Day, 6},
    {"2 Giorni", 2 * Day, 4},
    {"4 Giorni", 4 * Day, 4},
    {"1 Settimana", 7 * Day, 7},
    {"1 Mese", 35 * Day, 5},
    {"2 Mesi", 63 * Day, 9},
    {"3 Mesi", 92 * Day, 6},
}};
constexpr Intervallo Fallback = Table[0];

const Intervallo& at(std::int16_t index) {
    const auto position = static_cast<std::size_t>(index);  // a negative one is beyond the end
    return position < Table.size() ? Table[position] : Fallback;
}

}  // namespace

std::span<const char* const> testiIntervallo() {
    static constexpr auto texts = [] {
        std::array<const char*, Table.size()> list{};
        for (std::size_t i = 0; i < list.size(); ++i) list[i] = Table[i].text;
        return list;
    }();
    return texts;
}

std::int32_t SecondiIntervallo(std::int16_t index) { return at(index).seconds; }
std::int16_t DivisioniIntervallo(std::int16_t index) { return at(index).divisions; }

}  // namespace velt
