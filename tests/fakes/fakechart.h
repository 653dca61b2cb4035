// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <array>
#include <memory>
#include <vector>

namespace velt::fakes {

/// A chart that remembers what it was told.
struct FakeChart final : Chart {
    void Plot(std::shared_ptr<const ChartContents> contents) override { plots.push_back(contents); }
    void SeriesColor(int series, int red, int green, int blue) override {
        colors.at(static_cast<std::size_t>(series)) = {red, green, blue};
    }
    void SeriesVisible(int series, bool visible) override {
        visibles.at(static_cast<std::size_t>(series)) = visible;
    }
    void Normalised(bool value) override { normalised = value; }
    void Scale(int series) override { scale = series; }

    std::vector<std::shared_ptr<const ChartContents>> plots;
    std::array<std::array<int, 3>, ChartSeriesCount> colors{};
    std::array<bool, ChartSeriesCount> visibles{};
    bool normalised = false;
    int scale = -2;
};

}  // namespace velt::fakes
