// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace velt::designer {

/// The picture of a control in the designer's widget box, by its class name.
[[nodiscard]] QIcon controlIcon(const QString& control);

}  // namespace velt::designer
