// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controlwidget.h"

#include <memory>

namespace velt::ui {

struct AlarmViewerUi;

/// Browses the alarm history in the table Allarmi of an Access file: filters by date, alarm and
/// stations, a grid with a record counter.
class VELT_API AlarmViewer final : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(QString File READ File WRITE readFile)

public:
    /// With the process's standard services.
    explicit AlarmViewer(QWidget* parent = nullptr);
    /// `services` must outlive the control.
    explicit AlarmViewer(Services& services, QWidget* parent = nullptr);
    ~AlarmViewer() override;

    /// Path of the Access file. A change counts from the next connection on: an open one is kept
    /// until Terminate().
    [[nodiscard]] QString File() const { return source(); }
    void File(const QString& path) { source(path); }

private:
    AlarmViewer(Services* services, QWidget* parent);
    std::shared_ptr<LiveControl> makeLogic(Services& services) override;
    void readFile(const QString& path) { readSource(path); }

    std::unique_ptr<AlarmViewerUi> ui_;
};

}  // namespace velt::ui
