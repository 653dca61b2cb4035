// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/chart/chartdrawing.h"

#include <QSize>
#include <QString>

#include <functional>

namespace velt::ui {

// Each returns what went wrong, for the operator; "" when nothing did. A file that cannot be
// written whole is left as it was.

/// A sheet of `size` logical pixels, `scale` times as fine. May run on any thread.
[[nodiscard]] QString saveSheetPng(const ChartDrawing& drawing, const QSize& size, double scale,
                                   const QString& path);

/// One page of A4, landscape.
[[nodiscard]] QString saveSheetPdf(const ChartDrawing& drawing, const QString& path);

/// The samples in view of the visible pens. May run on any thread; ends early, without a file,
/// when `goesOn` says so.
[[nodiscard]] QString saveSampleCsv(const ChartDrawing& drawing, const QString& path,
                                    const std::function<bool()>& goesOn);

}  // namespace velt::ui
