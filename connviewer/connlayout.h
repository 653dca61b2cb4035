// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"
#include "platform/widgets.h"

namespace velt {

/// The widgets of a connection viewer that follow its size. All others keep their places.
struct ConnViewerPlaces {
    Surface& control;
    Placed& frmSelezioneDati;
    Placed& lblLog;  ///< within the frame
    Placed& lvVRX;   ///< beside the frame, on the control
};

/// Twips.
namespace connlayout {
inline constexpr int MinimumWidth = 9435;
inline constexpr int MinimumHeight = 4110;
inline constexpr int LogMargin = 180;    ///< from the log line to the frame's right and lower edge
inline constexpr int ColumnMargin = 60;  ///< what the list is wider than its first column
}  // namespace connlayout

/// Brings the control to its minimum size and the others after it. A size that a widget refuses is
/// skipped.
VELT_API void layOut(const ConnViewerPlaces& places);

}  // namespace velt
