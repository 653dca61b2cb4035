// SPDX-License-Identifier: MIT
#pragma once

#include "demo/plantvalue.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velt::demo {

/// How a variable moves with time.
enum class Course {
    Constant,  ///< `low`; texts: the first of the words
    Analog,    ///< wanders between `low` and `high` over the day, with ripple and noise
    Swing,     ///< crosses its range once a minute and stays at the ends for a while
    Counter,   ///< grows by `high` an hour, from `low`
    Switch,    ///< on or off, for a minute or more; texts and numbers: one of the words
    Present,   ///< the present moment
    Since,     ///< the moment at which the Switch of its seed last changed
};

enum class Access {
    ReadOnly,
    Writable,  ///< holds what is written to it
    Ranged,    ///< the same, but between `low` and `high` only
    Refused,   ///< listed, but the server refuses to serve it
};

enum class Condition {
    Sound,
    Faulty,    ///< its quality goes bad or uncertain now and then
    Limited,   ///< its quality tells when it is at the end of its range
    Constant,  ///< its quality tells that it cannot move
};

/// A variable of a station: what it is, not what it holds.
struct PlantVariable {
    std::string_view folder;  ///< folders below the station, separated by "/"; "" for none
    std::string name;
    std::string_view unit;
    PlantType type = PlantType::R8;
    std::size_t length = 0;  ///< of an array; 0: a single value
    Course course = Course::Analog;
    double low = 0.0;
    double high = 1.0;
    Access access = Access::ReadOnly;
    Condition condition = Condition::Sound;
    std::string_view words = {};  ///< of a text, separated by "|"
    std::string_view trend = {};  ///< table of its samples in the station's database; "": none
    int trendGroup = 0;           ///< 0..3
    std::uint64_t seed = 0;       ///< makes its course its own
};

struct PlantStation {
    std::string name;
    std::string place;
    std::vector<PlantVariable> variables;
};

}  // namespace velt::demo
