// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controlwidget.h"

#include <memory>

namespace velt::ui {

struct ConnViewerUi;

/// Links to the telecontrol runtime, shows the line state of its stations, and lets the operator
/// connect, disconnect and download them. Never smaller than 9435 x 4110 twips (629 x 274 pixels),
/// nor than its texts need in the present font.
class VELT_API ConnViewer final : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(QString File READ File WRITE readFile)

public:
    /// With the process's standard services.
    explicit ConnViewer(QWidget* parent = nullptr);
    /// `services` must outlive the control.
    explicit ConnViewer(Services& services, QWidget* parent = nullptr);
    ~ConnViewer() override;

    /// Path of the configuration file "VeltRTU.ini"; make a relative one absolute before. Assigned
    /// by the running host, the control links to the host that the file names. A path that came
    /// with the form leaves the choice of host to the runtime client.
    [[nodiscard]] QString File() const { return source(); }
    void File(const QString& path) { source(path); }
    /// Folder of the station databases: that of File and one "\"; "" without a File.
    [[nodiscard]] QString CartellaDownload() const;

    [[nodiscard]] QSize sizeHint() const override { return minimumSize(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    ConnViewer(Services* services, QWidget* parent);
    void arrange();
    std::shared_ptr<LiveControl> makeLogic(Services& services) override;
    void readFile(const QString& path) { readSource(path); }

    std::unique_ptr<ConnViewerUi> ui_;
};

}  // namespace velt::ui
