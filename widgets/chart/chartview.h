// SPDX-License-Identifier: MIT
#pragma once

#include "platform/chart.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace velt::ui {

/// What the operator looks at in a chart: a part of the window, a cursor, two markers. Knows
/// nothing of pixels. The part that is wanted is told at once, the contents for it may follow.
class ChartView {
public:
    struct Span {
        ChartTime from = 0;
        ChartTime to = 0;
        friend bool operator==(const Span&, const Span&) = default;
    };
    static constexpr ChartTime ShortestSpan = 1000;  ///< ms

    /// New contents of the whole window. Zoom, cursor and markers stay when the window is the same
    /// as before; a cursor or marker beyond it goes.
    void plot(std::shared_ptr<const ChartContents> whole);
    /// Contents for the wanted part.
    void present(std::shared_ptr<const ChartContents> shown) { shown_ = std::move(shown); }

    [[nodiscard]] const std::shared_ptr<const ChartContents>& whole() const { return whole_; }
    /// What is to be drawn; null before the first plot.
    [[nodiscard]] const std::shared_ptr<const ChartContents>& shown() const { return shown_; }
    [[nodiscard]] Span wanted() const;
    [[nodiscard]] bool zoomed() const { return !zooms_.empty(); }

    /// False when there is nothing to zoom into, or the part is too short.
    bool zoomTo(Span span);
    /// Into the half of the view around the cursor, or around its middle.
    bool zoomIn();
    /// To the view before. False when the whole window is shown already.
    bool zoomBack();

    [[nodiscard]] std::optional<ChartTime> cursor() const { return cursor_; }
    /// In whole seconds, but for a short view.
    void cursor(std::optional<ChartTime> time);
    /// By points of the view; without a cursor it appears in the middle.
    void moveCursor(int points);
    void cursorToStart();
    void cursorToEnd();

    [[nodiscard]] const std::array<std::optional<ChartTime>, 2>& markers() const {
        return markers_;
    }
    /// Sets marker 0 or 1 where the cursor stands, if it does.
    void mark(std::size_t marker);
    void clearMarkers() { markers_ = {}; }

private:
    std::shared_ptr<const ChartContents> whole_;
    std::shared_ptr<const ChartContents> shown_;
    std::vector<Span> zooms_;
    std::optional<ChartTime> cursor_;
    std::array<std::optional<ChartTime>, 2> markers_;
};

}  // namespace velt::ui
