// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controlwidget.h"

#include <QDateTime>

#include <memory>

namespace velt {
class Date;
}

namespace velt::ui {

struct TrendViewerUi;

/// Draws up to four historical trends of a station over a window of time. Stations and trends come
/// from the configuration file, samples from the station databases beside it.
class VELT_API TrendViewer final : public ControlWidget {
    Q_OBJECT
    Q_PROPERTY(QString File READ File WRITE readFile)

public:
    /// With the process's standard services.
    explicit TrendViewer(QWidget* parent = nullptr);
    /// `services` must outlive the control.
    explicit TrendViewer(Services& services, QWidget* parent = nullptr);
    ~TrendViewer() override;

    /// Path of the configuration file. Assigned at run time, the stations are read anew.
    [[nodiscard]] QString File() const { return source(); }
    void File(const QString& path) { source(path); }
    /// Folder of the station databases, with its separator; "" without a File.
    [[nodiscard]] QString CartellaDownload() const;

    /// Asks for a station, the trends of the four pens ("" or unknown: none), the start of the
    /// window and its length as a position in the range list (0 "1 Ora" to 12 "3 Mesi"; one beyond
    /// it keeps the range). Applied once, shortly after the control is first shown; a request that
    /// comes later stays unapplied.
    void SetTrend(const QString& vrx, const QString& trend1, const QString& trend2,
                  const QString& trend3, const QString& trend4, const Date& DataIniziale,
                  qint16 Intervallo);
    /// The same, with the date and the time of day of `DataIniziale` whatever its time zone.
    void SetTrend(const QString& vrx, const QString& trend1, const QString& trend2,
                  const QString& trend3, const QString& trend4, const QDateTime& DataIniziale,
                  qint16 Intervallo);

private:
    TrendViewer(Services* services, QWidget* parent);
    std::shared_ptr<LiveControl> makeLogic(Services& services) override;
    void readFile(const QString& path) { readSource(path); }

    std::unique_ptr<TrendViewerUi> ui_;
};

}  // namespace velt::ui
