// SPDX-License-Identifier: MIT
#include "adapters/standard/standardservices.h"
#include "demo/installation.h"
#include "panel/velt-panel/clicks.h"
#include "panel/velt-panel/endsignals.h"
#include "panel/velt-panel/forms.h"
#include "panel/velt-panel/hostwindow.h"
#include "panel/velt-panel/options.h"
#include "panel/velt-panel/sources.h"
#include "platform/runtimeerror.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace velt::panel {
namespace {

/// Ends the program also when a dialog stands in front of the window.
void end(HostWindow& window, int exitCode) {
    if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
    window.close();
    QApplication::exit(exitCode);
}

void takePicture(HostWindow& window, const Options& options) {
    QTimer::singleShot(static_cast<int>(options.screenshotAfter * 1000), &window, [&] {
        // A message to the operator stands in front of the window: it is what he sees.
        QWidget* modal = QApplication::activeModalWidget();
        const bool saved = (modal ? modal : &window)->grab().save(options.screenshot);
        if (!saved)
            std::fprintf(stderr, "velt-panel: cannot write %s\n", qPrintable(options.screenshot));
        end(window, saved ? 0 : 1);
    });
}

int run(const Options& options) {
    QString error;
    std::unique_ptr<QWidget> form(options.form.isEmpty() ? makeBuiltInForm()
                                                         : loadForm(options.form, error));
    if (!form) {
        std::fprintf(stderr, "velt-panel: %s\n", qPrintable(error));
        return 1;
    }

    SystemClock clock;
    std::unique_ptr<demo::Installation> installation;
    Sources sources{.alarmFile = options.alarmFile,
                    .rtuConfig = options.rtuConfig,
                    .opcHost = options.opcHost,
                    .settingsFile = options.settingsFile};
    if (options.demo) {
        demo::InstallationOptions demoOptions;
        demoOptions.folder = options.dataFolder.toStdString();
        demoOptions.seed = options.seed;
        demoOptions.opcPort = 0;
        demoOptions.log = [](const std::string& text) {
            std::fprintf(stderr, "velt-panel: %s\n", text.c_str());
        };
        installation = std::make_unique<demo::Installation>(std::move(demoOptions), clock);
        const auto fill = [](QString& target, const std::filesystem::path& path) {
            if (target.isEmpty()) target = QString::fromStdString(path.string());
        };
        fill(sources.alarmFile, installation->alarmFile());
        fill(sources.rtuConfig, installation->configFile());
        fill(sources.settingsFile, installation->settingsFile());
        if (sources.opcHost.isEmpty())
            sources.opcHost = QString::fromStdString(installation->opcEndpoint());
    }

    if (!options.opcConfig.isEmpty()) setOpcConfiguration(options.opcConfig.toStdString());
    HostWindow window(form.release());
    const QDir formFolder =
        options.form.isEmpty() ? QDir::current() : QFileInfo(options.form).absoluteDir();
    assign(sources, formFolder, *window.centralWidget());
    const EndSignals endSignals([&window] { end(window, 0); });
    window.show();
    if (!options.clicks.isEmpty()) new Clicks(window, options.clicks);
    if (!options.screenshot.isEmpty()) takePicture(window, options);
    return QApplication::exec();
}

}  // namespace
}  // namespace velt::panel

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName("velt-panel");
    QCoreApplication::setApplicationVersion(VELT_VERSION);
    std::optional<velt::panel::Options> options;
    int exitCode = 0;
    {
        // The command line is read without a display: --help must work everywhere.
        const QCoreApplication early(argc, argv);
        options = velt::panel::parseOptions(QCoreApplication::arguments(), exitCode);
    }
    if (!options) return exitCode;

    velt::panel::EndSignals::holdBack();
    const QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QTranslator translator;  // Qt's own dialogs
    if (translator.load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    try {
        return velt::panel::run(*options);
    } catch (const velt::RuntimeError& error) {
        std::fprintf(stderr, "velt-panel: %s\n", error.what());
        return 1;
    }
}
