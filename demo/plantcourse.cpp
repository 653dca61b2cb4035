// SPDX-License-Identifier: MIT
#include "demo/plantcourse.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

namespace velt::demo {
namespace {

constexpr double Turn = 6.283185307179586;
constexpr double Day = 86400e3;               // ms
constexpr std::int64_t SwitchBlock = 60'000;  // ms
constexpr std::int64_t FaultBlock = 15'000;   // ms

std::uint64_t mixed(std::uint64_t x) {
    x += 0x9e3779b97f4a7c15u;
    x = (x ^ (x >> 30)) * 0xbf58476d1ce4e5b9u;
    x = (x ^ (x >> 27)) * 0x94d049bb133111ebu;
    return x ^ (x >> 31);
}

std::uint64_t mixed(std::uint64_t seed, std::int64_t at) {
    return mixed(seed ^ mixed(static_cast<std::uint64_t>(at)));
}

/// 0 <= result < 1
double chance(std::uint64_t seed, std::int64_t at) {
    return static_cast<double>(mixed(seed, at) >> 11) * 0x1p-53;
}

/// 0 to 1 over time: a curve of the day, a ripple of half an hour to two hours, and noise.
double wander(std::uint64_t seed, std::int64_t milliseconds, std::int64_t interval) {
    const auto at = static_cast<double>(milliseconds);
    const double phase = chance(seed, -1);
    const double ripple = 1.8e6 + 5.4e6 * chance(seed, -2);
    const double noise = chance(seed, milliseconds / interval) - 0.5;
    return std::clamp(0.5 + 0.34 * std::sin(Turn * (at / Day + phase)) +
                          0.11 * std::sin(Turn * at / ripple) + 0.05 * noise,
                      0.0, 1.0);
}

/// 0 to 1: there and back in a minute, with a rest at each end.
double swing(std::uint64_t seed, std::int64_t milliseconds) {
    const double turns = static_cast<double>(milliseconds) / 60'000.0 + chance(seed, -1);
    return std::clamp(0.5 + 0.7 * std::sin(Turn * turns), 0.0, 1.0);
}

/// The block of time in which a switch last changed, looking back a few blocks at most.
std::int64_t lastChange(std::uint64_t seed, std::int64_t milliseconds) {
    std::int64_t block = milliseconds / SwitchBlock;
    for (int back = 0; back < 30 && mixed(seed, block) % 4 != 0; ++back) --block;
    return block;
}

std::string word(std::string_view words, std::uint64_t number) {
    const auto count = static_cast<std::uint64_t>(std::ranges::count(words, '|')) + 1;
    for (std::uint64_t skip = number % count; skip > 0; --skip)
        words.remove_prefix(words.find('|') + 1);
    return std::string(words.substr(0, words.find('|')));
}

struct Moment {
    std::int64_t milliseconds;
    std::int64_t interval;
};

double numberAt(const PlantVariable& v, std::uint64_t seed, Moment now) {
    switch (v.course) {
        case Course::Constant: return v.low;
        case Course::Analog:
            return v.low + (v.high - v.low) * wander(seed, now.milliseconds, now.interval);
        case Course::Swing: return v.low + (v.high - v.low) * swing(seed, now.milliseconds);
        case Course::Counter: {
            // Counted from a day that keeps the numbers readable.
            constexpr double Start = 45'000.0 * Day;
            // The elements of an array do not all run alike.
            const double pace = seed == v.seed ? 1.0 : 0.5 + chance(seed, -3);
            return v.low + (static_cast<double>(now.milliseconds) - Start) / 3600e3 * v.high * pace;
        }
        case Course::Switch: {
            const std::uint64_t dice = mixed(seed, lastChange(seed, now.milliseconds)) >> 8;
            return v.low +
                   static_cast<double>(dice % static_cast<std::uint64_t>(v.high - v.low + 1));
        }
        case Course::Present:
        case Course::Since: break;
    }
    return 0.0;
}

template <typename T>
T oneValue(const PlantVariable& v, std::uint64_t seed, Moment now) {
    if constexpr (std::is_same_v<T, Date>) {
        const std::int64_t at = v.course == Course::Present
                                    ? now.milliseconds / 1000 * 1000
                                    : lastChange(seed, now.milliseconds) * SwitchBlock;
        return Date::fromMilliseconds(at);
    } else if constexpr (std::is_same_v<T, std::string>) {
        if (v.course == Course::Constant) return word(v.words, 0);
        return word(v.words, mixed(seed, lastChange(seed, now.milliseconds)) >> 8);
    } else if constexpr (std::is_same_v<T, bool>) {
        return numberAt(v, seed, now) >= 0.5;
    } else if constexpr (std::is_integral_v<T>) {
        // A counter of a narrow type starts again, as that of a device does.
        return static_cast<T>(static_cast<std::int64_t>(std::llround(numberAt(v, seed, now))));
    } else {
        // As many decimals as an instrument would give.
        return static_cast<T>(std::round(numberAt(v, seed, now) * 1000.0) / 1000.0);
    }
}

template <typename T>
PlantValue value(const PlantVariable& v, Moment now) {
    if (v.length == 0) return oneValue<T>(v, v.seed, now);
    std::vector<T> values;
    values.reserve(v.length);
    for (std::size_t i = 0; i < v.length; ++i)
        values.push_back(oneValue<T>(v, mixed(v.seed + i), now));
    return values;
}

}  // namespace

PlantValue valueAt(const PlantVariable& variable, std::int64_t milliseconds,
                   std::int64_t interval) {
    const Moment now{milliseconds, interval};
    switch (variable.type) {
        case PlantType::Boolean: return value<bool>(variable, now);
        case PlantType::I1: return value<std::int8_t>(variable, now);
        case PlantType::UI1: return value<std::uint8_t>(variable, now);
        case PlantType::I2: return value<std::int16_t>(variable, now);
        case PlantType::UI2: return value<std::uint16_t>(variable, now);
        case PlantType::I4: return value<std::int32_t>(variable, now);
        case PlantType::UI4: return value<std::uint32_t>(variable, now);
        case PlantType::I8: return value<std::int64_t>(variable, now);
        case PlantType::R4: return value<float>(variable, now);
        case PlantType::R8: return value<double>(variable, now);
        case PlantType::DateTime: return value<Date>(variable, now);
        case PlantType::Text: break;
    }
    return value<std::string>(variable, now);
}

double analogAt(const PlantVariable& variable, std::int64_t milliseconds, std::int64_t interval) {
    return oneValue<double>(variable, variable.seed, {milliseconds, interval});
}

bool isRecorded(const PlantVariable& variable, std::int64_t milliseconds) {
    constexpr std::int64_t Block = 3 * 3600'000;
    return chance(~variable.seed, milliseconds / Block) >= 0.01;
}

PlantQuality qualityAt(const PlantVariable& variable, std::int64_t milliseconds) {
    switch (variable.condition) {
        case Condition::Sound: break;
        case Condition::Constant: return {Fault::None, Limit::Constant};
        case Condition::Limited: {
            const double at = swing(variable.seed, milliseconds);
            return {Fault::None, at <= 0.0 ? Limit::Low : at >= 1.0 ? Limit::High : Limit::None};
        }
        case Condition::Faulty: {
            constexpr std::array Faults = {Fault::None,          Fault::Uncertain,
                                           Fault::LastUsable,    Fault::None,
                                           Fault::SensorFailure, Fault::NoCommunication,
                                           Fault::None,          Fault::OutOfService};
            const auto block = static_cast<std::uint64_t>(milliseconds / FaultBlock);
            return {Faults[(block + variable.seed) % Faults.size()], Limit::None};
        }
    }
    return {};
}

}  // namespace velt::demo
