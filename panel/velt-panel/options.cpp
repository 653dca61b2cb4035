// SPDX-License-Identifier: MIT
#include "panel/velt-panel/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>

namespace velt::panel {
namespace {

QString absolute(const QString& path) {
    return path.isEmpty() ? path : QDir::current().absoluteFilePath(path);
}

}  // namespace

std::optional<Options> parseOptions(const QStringList& arguments, int& exitCode) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Operator panel that hosts the VELT controls.\n\n"
        "Without FORM it shows a built-in form with every control. FORM is a file of Qt Designer "
        "(.ui).\nExit codes: 0 ended normally, 1 could not start, 2 wrong usage.");
    const QCommandLineOption help({"h", "help"}, "Show this help and exit.");
    const QCommandLineOption version({"v", "version"}, "Show the version and exit.");
    const QCommandLineOption demo("demo",
                                  "Run the demo installation inside this process and connect the "
                                  "controls to it.");
    const QCommandLineOption data(
        "data", "Folder of the demo installation (default: velt-demo in the user's data folder).",
        "DIR");
    const QCommandLineOption seed("seed", "Seed of what the demo installation makes up.", "N", "1");
    const QCommandLineOption alarms("alarms", "Alarm database for the alarm viewers.", "FILE");
    const QCommandLineOption rtuConfig(
        "rtu-config", "Configuration file VeltRTU.ini for the trend and the connection viewers.",
        "FILE");
    const QCommandLineOption opc("opc",
                                 "Node of the OPC server for the OPC viewers: a host name, or a "
                                 "URL like opc.tcp://host:4840.",
                                 "NODE");
    const QCommandLineOption opcConfig(
        "opc-config",
        "File with security, user and password for the OPC viewers (default: what VELT_OPC_CONFIG "
        "names).",
        "FILE");
    const QCommandLineOption settings("settings", "Settings file for all controls.", "FILE");
    const QCommandLineOption click("click",
                                   "Press the button with this name once the window stands, for "
                                   "example cmdAggiornaDati or AlarmViewer1.cmdAggiornaDati; "
                                   "LIST:ROW ticks, selects or chooses a row. May be repeated.",
                                   "NAME");
    const QCommandLineOption screenshot("screenshot", "Save a picture of the window, then exit.",
                                        "FILE.png");
    const QCommandLineOption after("after", "Seconds until the picture is taken (default: 2).",
                                   "SECONDS", "2");
    parser.addOptions({help, version, demo, data, seed, alarms, rtuConfig, opc, opcConfig, settings,
                       click, screenshot, after});
    parser.addPositionalArgument("FORM", "Form to show.", "[FORM.ui]");

    const auto wrongUsage = [&exitCode](const QString& what) -> std::optional<Options> {
        std::fprintf(stderr, "velt-panel: %s\nTry 'velt-panel --help'.\n", qPrintable(what));
        exitCode = 2;
        return std::nullopt;
    };
    if (!parser.parse(arguments)) return wrongUsage(parser.errorText());
    exitCode = 0;
    if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return std::nullopt;
    }
    if (parser.isSet(version)) {
        std::printf("velt-panel %s\n", qPrintable(QCoreApplication::applicationVersion()));
        return std::nullopt;
    }

    const QStringList forms = parser.positionalArguments();
    if (forms.size() > 1) return wrongUsage("more than one form");
    if (parser.isSet(data) && !parser.isSet(demo)) return wrongUsage("--data goes with --demo");

    Options options;
    options.form = absolute(forms.value(0));
    options.demo = parser.isSet(demo);
    options.dataFolder =
        parser.isSet(data)
            ? absolute(parser.value(data))
            : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/velt-demo";
    options.alarmFile = absolute(parser.value(alarms));
    options.rtuConfig = absolute(parser.value(rtuConfig));
    options.opcHost = parser.value(opc);
    options.opcConfig = absolute(parser.value(opcConfig));
    options.settingsFile = absolute(parser.value(settings));
    options.clicks = parser.values(click);
    options.screenshot = absolute(parser.value(screenshot));
    bool isNumber = false;
    options.seed = parser.value(seed).toULongLong(&isNumber);
    if (!isNumber) return wrongUsage("--seed needs a whole number");
    options.screenshotAfter = parser.value(after).toDouble(&isNumber);
    if (!isNumber || !(options.screenshotAfter >= 0 && options.screenshotAfter <= 86400))
        return wrongUsage("--after needs a number of seconds");
    if (parser.isSet(after) && !parser.isSet(screenshot))
        return wrongUsage("--after goes with --screenshot");
    return options;
}

}  // namespace velt::panel
