// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/gatedcontrol.h"

#include <memory>
#include <string>
#include <vector>

namespace velt::qt {

/// A control without logic: its errors are remembered.
class TestControl final : public GatedControl {
public:
    explicit TestControl(QWidget* widget = nullptr) : GatedControl(widget) {}
    std::vector<std::string> errors;

private:
    void announce(const RuntimeError& error) override {
        errors.push_back(std::to_string(error.Number()) + " " + error.Description());
    }
};

}  // namespace velt::qt
