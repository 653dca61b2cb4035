// SPDX-License-Identifier: MIT
#include "panel/velt-panel/sources.h"

#include "widgets/alarmviewer.h"
#include "widgets/connviewer.h"
#include "widgets/opcviewer.h"
#include "widgets/trendviewer.h"

#include <QWidget>

namespace velt::panel {

void assign(const Sources& sources, const QDir& formFolder, QWidget& form) {
    const auto fromForm = [&formFolder](const QString& path) {
        return path.isEmpty() ? path : formFolder.absoluteFilePath(path);
    };
    const auto alarmViewers = form.findChildren<ui::AlarmViewer*>();
    for (ui::AlarmViewer* viewer : alarmViewers)
        viewer->File(sources.alarmFile.isEmpty() ? fromForm(viewer->File()) : sources.alarmFile);
    const auto takeConfig = [&](auto* viewer) {
        viewer->File(sources.rtuConfig.isEmpty() ? fromForm(viewer->File()) : sources.rtuConfig);
    };
    const auto trendViewers = form.findChildren<ui::TrendViewer*>();
    for (ui::TrendViewer* viewer : trendViewers) takeConfig(viewer);
    const auto connViewers = form.findChildren<ui::ConnViewer*>();
    for (ui::ConnViewer* viewer : connViewers) takeConfig(viewer);
    // As if it had come with the form: an assignment would connect before the window is there.
    if (!sources.opcHost.isEmpty()) {
        const auto opcViewers = form.findChildren<ui::OPCViewer*>();
        for (ui::OPCViewer* viewer : opcViewers) viewer->setProperty("Hostname", sources.opcHost);
    }
    // A FileIni that came with the form is assigned once more: only an assignment by the running
    // host tells a control the name of its instance, and with it the section that is its own.
    const auto controls = form.findChildren<ui::ControlWidget*>();
    for (ui::ControlWidget* control : controls)
        control->FileIni(sources.settingsFile.isEmpty() ? fromForm(control->FileIni())
                                                        : sources.settingsFile);
}

}  // namespace velt::panel
