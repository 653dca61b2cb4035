// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QString>
#include <QTest>

#include <functional>

namespace velt {

/// A warning that a test brings about on purpose: it must come while this object lives. Any other
/// warning fails the test.
class ExpectedWarning {
public:
    /// `part` of the text.
    explicit ExpectedWarning(QString part);
    ~ExpectedWarning();
    ExpectedWarning(const ExpectedWarning&) = delete;
    ExpectedWarning& operator=(const ExpectedWarning&) = delete;

private:
    friend struct WarningList;
    QString part_;
    bool came_ = false;
};

/// Turns the event loop until `condition` holds; false after five seconds.
[[nodiscard]] inline bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 5000);
}

/// Lets everything happen that is pending.
inline void settle() {
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace velt
