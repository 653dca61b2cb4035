// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <memory>
#include <string>

namespace velt::cli {

struct PictureSize {
    int width = 1200;
    int height = 700;
};

/// Draws a trend as the control does, without a window or a display, and saves it as PNG.
/// RuntimeError 75 when the file cannot be written.
void saveTrendPicture(const std::shared_ptr<const ChartContents>& contents, PictureSize size,
                      const std::string& path);

}  // namespace velt::cli
