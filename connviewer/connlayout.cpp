// SPDX-License-Identifier: MIT
#include "connviewer/connlayout.h"

#include "platform/runtimeerror.h"

namespace velt {

void layOut(const ConnViewerPlaces& places) {
    using namespace connlayout;
    Surface& control = places.control;
    Placed& frame = places.frmSelezioneDati;
    Placed& log = places.lblLog;
    Placed& list = places.lvVRX;

    ignoreErrors([&] {
        if (control.Width() < MinimumWidth) control.Width(MinimumWidth);
    });
    ignoreErrors([&] {
        if (control.Height() < MinimumHeight) control.Height(MinimumHeight);
    });
    ignoreErrors([&] { frame.Width(control.ScaleWidth()); });
    ignoreErrors([&] { frame.Height(control.ScaleHeight() - frame.Top()); });
    ignoreErrors([&] { log.Width(frame.Width() - log.Left() - LogMargin); });
    ignoreErrors([&] { log.Height(frame.Height() - log.Top() - LogMargin); });
    ignoreErrors([&] { list.Height(frame.Top() + frame.Height() - list.Top()); });
}

}  // namespace velt
