// SPDX-License-Identifier: MIT
// The main() of tests with widgets: offscreen, and any unexpected warning of Qt is a failure.
#include "tests/qtmain.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

namespace velt {

struct WarningList {
    std::mutex mutex;  ///< warnings may come from any thread
    std::vector<ExpectedWarning*> expected;

    static WarningList& instance() {
        static WarningList list;
        return list;
    }
    bool isExpected(const QString& text) {
        const std::lock_guard lock(mutex);
        for (ExpectedWarning* warning : expected) {
            if (!text.contains(warning->part_)) continue;
            warning->came_ = true;
            return true;
        }
        return false;
    }
};

ExpectedWarning::ExpectedWarning(QString part) : part_(std::move(part)) {
    const std::lock_guard lock(WarningList::instance().mutex);
    WarningList::instance().expected.push_back(this);
}

ExpectedWarning::~ExpectedWarning() {
    const std::lock_guard lock(WarningList::instance().mutex);
    std::erase(WarningList::instance().expected, this);
    EXPECT_TRUE(came_) << "expected, but never came: " << part_.toStdString();
}

namespace {

/// What Qt says of a machine without a desktop, whatever a program does.
bool isOfTheSurroundings(const QString& text) {
    return text.startsWith("QStandardPaths: XDG_RUNTIME_DIR not set") ||
           text == "This plugin does not support propagateSizeHints()" ||
           text == "This plugin does not support setParent!";
}

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    if (isOfTheSurroundings(text) || WarningList::instance().isExpected(text)) return;
    ADD_FAILURE() << "unexpected warning (" << context.category << "): " << text.toStdString();
}

}  // namespace
}  // namespace velt

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(velt::handleMessage);
    const QApplication application(argc, argv);
    // A message over a window must not end the program when the window goes.
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
