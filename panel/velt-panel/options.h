// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace velt::panel {

/// What the command line asks of the panel.
struct Options {
    QString form;        ///< a .ui file; empty: the built-in form
    bool demo = false;   ///< start the demo installation in this process
    QString dataFolder;  ///< of the demo installation
    std::uint64_t seed = 1;
    QString alarmFile;             ///< File of every alarm viewer
    QString rtuConfig;             ///< File of every trend viewer
    QString opcHost;               ///< Hostname of every OPC viewer
    QString opcConfig;             ///< security of OPC connections
    QString settingsFile;          ///< FileIni of every control
    QStringList clicks;            ///< steps of Clicks, once the window stands
    QString screenshot;            ///< save a picture here, then end
    double screenshotAfter = 2.0;  ///< seconds
};

/// Reads the command line. For --help and --version, and for a wrong usage, prints what there is
/// to say and gives nothing; `exitCode` is then 0 or 2.
[[nodiscard]] std::optional<Options> parseOptions(const QStringList& arguments, int& exitCode);

}  // namespace velt::panel
