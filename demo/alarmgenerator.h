// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace velt::demo {

/// One row of the alarm history.
struct Alarm {
    Date time;
    std::string station;
    std::string name;
    std::string description;
    std::string event;
    friend bool operator==(const Alarm&, const Alarm&) = default;
};

/// Makes up the alarms of the plant, the same ones for the same seed. An alarm that was raised is
/// later acknowledged and cleared.
class AlarmGenerator {
public:
    explicit AlarmGenerator(std::uint64_t seed) : random_(seed) {}

    /// The alarm event that happens at `instant`, logged to the second.
    [[nodiscard]] Alarm at(const Date& instant);
    /// Events from `start` to `end`, about `count` of them, more by day than by night.
    [[nodiscard]] std::vector<Alarm> history(const Date& start, const Date& end, int count);

private:
    struct Active {
        std::size_t station;
        std::size_t kind;
        std::size_t detail;
        bool acknowledged;
    };
    [[nodiscard]] std::size_t pick(std::size_t count);
    [[nodiscard]] static Alarm row(const Date& time, const Active& alarm, const char* event);

    std::mt19937_64 random_;
    std::vector<Active> active_;
};

}  // namespace velt::demo
