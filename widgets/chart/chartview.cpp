// SPDX-License-Identifier: MIT
#include "widgets/chart/chartview.h"

#include "trendviewer/vista.h"

#include <algorithm>
#include <utility>

namespace velt::ui {
namespace {

constexpr ChartTime Second = 1000;
constexpr ChartTime FineSpan = 1800 * Second;  // in a longer one nobody can point at half a second

/// A moment in a view of a `length`, without a fraction of a second that nobody has aimed at;
/// within `bounds`.
ChartTime plain(ChartTime time, ChartTime length, const ChartView::Span& bounds) {
    if (length < FineSpan) return time;
    const ChartTime rest = ((time % Second) + Second) % Second;
    return std::clamp(time - rest + (rest < Second / 2 ? 0 : Second), bounds.from, bounds.to);
}

}  // namespace

void ChartView::plot(std::shared_ptr<const ChartContents> whole) {
    const bool sameWindow =
        whole_ && whole && whole_->start == whole->start && whole_->end == whole->end;
    whole_ = std::move(whole);
    if (!sameWindow) zooms_.clear();
    if (zooms_.empty()) shown_ = whole_;
    const auto keepWithin = [this](std::optional<ChartTime>& time) {
        if (!whole_ || (time && (*time < whole_->start || *time > whole_->end))) time.reset();
    };
    keepWithin(cursor_);
    for (auto& marker : markers_) keepWithin(marker);
}

ChartView::Span ChartView::wanted() const {
    if (!zooms_.empty()) return zooms_.back();
    return whole_ ? Span{whole_->start, whole_->end} : Span{};
}

bool ChartView::zoomTo(Span span) {
    if (!whole_) return false;
    if (span.to < span.from) std::swap(span.from, span.to);
    const Span bounds{whole_->start, whole_->end};
    const Span now = wanted();
    const ChartTime length = now.to - now.from;
    span.from = plain(std::max(span.from, bounds.from), length, bounds);
    span.to = plain(std::min(span.to, bounds.to), length, bounds);
    if (span.to - span.from < ShortestSpan || span == now) return false;
    zooms_.push_back(span);
    return true;
}

bool ChartView::zoomIn() {
    const Span now = wanted();
    const ChartTime quarter = (now.to - now.from) / 4;
    const ChartTime middle = std::clamp(cursor_.value_or(now.from + 2 * quarter),
                                        now.from + quarter, std::max(now.to - quarter, now.from));
    return zoomTo({middle - quarter, middle + quarter});
}

bool ChartView::zoomBack() {
    if (zooms_.empty()) return false;
    zooms_.pop_back();
    return true;
}

void ChartView::cursor(std::optional<ChartTime> time) {
    cursor_ = time;
    if (cursor_ && shown_)
        cursor_ = plain(*cursor_, shown_->end - shown_->start, {shown_->start, shown_->end});
}

void ChartView::moveCursor(int points) {
    if (!shown_) return;
    const ChartContents& view = *shown_;
    const bool inView = cursor_ && *cursor_ >= view.start && *cursor_ <= view.end;
    const int point = inView ? pointAt(view, *cursor_) + points : view.points / 2;
    cursor(timeOfPoint(view, std::clamp(point, 0, view.points)));
}

void ChartView::cursorToStart() {
    if (shown_) cursor_ = shown_->start;
}

void ChartView::cursorToEnd() {
    if (shown_) cursor_ = shown_->end;
}

void ChartView::mark(std::size_t marker) {
    if (cursor_) markers_.at(marker) = cursor_;
}

}  // namespace velt::ui
