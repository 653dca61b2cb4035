// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>

class QWidget;

namespace velt::panel {

/// What the host assigns to the controls of a form; empty: what the form says is kept.
struct Sources {
    QString alarmFile;     ///< of the alarm viewers
    QString rtuConfig;     ///< of the trend and the connection viewers
    QString opcHost;       ///< of the OPC viewers
    QString settingsFile;  ///< of all
};

/// Assigns the sources before the form is shown. Paths that came with the form count from
/// `formFolder`.
void assign(const Sources& sources, const QDir& formFolder, QWidget& form);

}  // namespace velt::panel
