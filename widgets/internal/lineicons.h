// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/checklistmodel.h"

#include <vector>

namespace velt::ui {

/// A picture for each line state of a station, by its code, each of its own shape.
[[nodiscard]] std::vector<qt::ListPicture> lineStatePictures();

}  // namespace velt::ui
