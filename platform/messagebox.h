// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <string>

namespace velt {

/// Tells the operator something and waits for the confirmation.
class VELT_API MessageBox {
public:
    static constexpr int Exclamation = 48;  ///< style: exclamation icon

    virtual ~MessageBox() = default;
    virtual void Show(const std::string& text, int style, const std::string& title) = 0;
};

}  // namespace velt
