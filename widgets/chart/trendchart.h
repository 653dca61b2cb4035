// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

namespace velt {
struct ChartContents;
struct Locale;
}  // namespace velt

namespace velt::ui {

struct ChartDrawing;
class ChartView;

/// Shows a chart and lets the operator look closer: a cursor with what the pens say there, two
/// markers, a part of the window. The curves are drawn once and kept as a picture; the cursor is
/// drawn over it. Samples are reduced on threads of the widget's own.
class TrendChart : public QWidget {
    Q_OBJECT

public:
    explicit TrendChart(QWidget* parent = nullptr);
    ~TrendChart() override;

    void setLocaleOfTexts(const Locale& locale);
    void plot(std::shared_ptr<const ChartContents> contents);
    void setSeriesColor(int series, const QColor& color);
    /// Shows with the next plot.
    void setSeriesVisible(int series, bool visible);
    void setNormalised(bool normalised);
    /// -1 for the scale of all pens.
    void setScale(int series);

    /// What is on the screen now.
    [[nodiscard]] const ChartDrawing& drawing() const;
    [[nodiscard]] const ChartView& view() const;

    // What keyboard, mouse and menu do.
    void zoomTo(qint64 from, qint64 to);
    void zoomIn();
    void zoomBack();
    void zoomToMarkers();
    void setMarker(int marker);
    void clearMarkers();

    /// Runs `work` on a thread of the widget's, then `done` on this one unless the widget is gone.
    /// `work` gets a function that tells whether it may go on.
    void inBackground(std::function<void(const std::function<bool()>& goesOn)> work,
                      std::function<void()> done);

    [[nodiscard]] QSize sizeHint() const override { return {700, 300}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 140}; }

signals:
    /// What is in view, or which pens are, has changed.
    void viewChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct State;
    void redraw();
    void cursorMoved();
    void fetchView();
    void renderCurves();
    void paintHint(QPainter& painter);
    [[nodiscard]] qint64 timeAt(const QPointF& place) const;

    std::unique_ptr<State> state_;
};

}  // namespace velt::ui
