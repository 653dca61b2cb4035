// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controlwidget.h"

#include <memory>

namespace velt::ui {

struct OPCViewerUi;

/// Lists the stations of an OPC server and shows the variables of the ticked ones live; writes
/// values into them.
class VELT_API OPCViewer final : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(QString Hostname READ Hostname WRITE readHostname)

public:
    /// With the process's standard services.
    explicit OPCViewer(QWidget* parent = nullptr);
    /// `services` must outlive the control.
    explicit OPCViewer(Services& services, QWidget* parent = nullptr);
    ~OPCViewer() override;

    /// The node on which the OPC server runs, or its URL; empty: the local machine. A change
    /// rebuilds the station list from the server that is connected, if one is: the new node counts
    /// from the next connection on.
    [[nodiscard]] QString Hostname() const { return source(); }
    void Hostname(const QString& node) { source(node); }

private:
    OPCViewer(Services* services, QWidget* parent);
    std::shared_ptr<LiveControl> makeLogic(Services& services) override;
    void readHostname(const QString& node) { readSource(node); }

    std::unique_ptr<OPCViewerUi> ui_;
};

}  // namespace velt::ui
