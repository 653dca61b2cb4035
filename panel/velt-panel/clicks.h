// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

class QWidget;

namespace velt::panel {

/// Uses the window as an operator would: step by step, each when the one before has been done. A
/// step is the name of a button, or the name of a list, ":" and the text of a row: that row gets
/// or loses its check mark, or is selected in a list without check marks, or is chosen in a
/// drop-down list, where the beginning of its text is enough. A name may be preceded
/// by the name of a widget around it and "." ("OPCViewer1.cmdSeleziona"). What stands on another
/// page is brought to the front first. A step that cannot be done is told on standard error.
class Clicks : public QObject {
    Q_OBJECT

public:
    Clicks(QWidget& window, QStringList steps);

private:
    void next();
    /// False: not yet.
    bool perform(const QString& step);
    [[nodiscard]] QWidget* find(const QString& path) const;

    QWidget& window_;
    QStringList steps_;
    QTimer timer_;
    int tries_ = 0;  ///< of the present step
};

}  // namespace velt::panel
