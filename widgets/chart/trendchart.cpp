// SPDX-License-Identifier: MIT
#include "widgets/chart/trendchart.h"

#include "trendviewer/vista.h"
#include "widgets/chart/chartmenu.h"
#include "widgets/chart/chartpainter.h"
#include "widgets/chart/cursorpainter.h"

#include <QContextMenuEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <utility>

namespace velt::ui {
namespace {

constexpr double ShortestDrag = 6;  // pixels: less is a click
constexpr int BigStep = 10;         // points
constexpr int Threads = 2;          // a zoom need not wait for a file that is being written

}  // namespace

struct TrendChart::State {
    ChartView view;
    ChartDrawing drawing;
    std::array<bool, ChartSeriesCount> visibleNext = {true, true, true, true};
    std::unique_ptr<ChartGeometry> geometry;
    QPixmap curves;
    bool stale = true;
    std::optional<QPointF> dragStart;
    QPointF dragEnd;
    quint64 request = 0;  ///< the newest view that was asked for
    std::atomic<bool> goesOn = true;
    QThreadPool pool;  ///< last: its work ends before the rest goes
};

TrendChart::TrendChart(QWidget* parent) : QWidget(parent), state_(std::make_unique<State>()) {
    state_->pool.setMaxThreadCount(Threads);
    state_->drawing.colors = ChartColors::of(palette());
    setAccessibleName(QStringLiteral("Grafico"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

TrendChart::~TrendChart() {
    state_->goesOn = false;
    state_->pool.clear();
    state_->pool.waitForDone();
}

const ChartDrawing& TrendChart::drawing() const { return state_->drawing; }
const ChartView& TrendChart::view() const { return state_->view; }

void TrendChart::setLocaleOfTexts(const Locale& locale) {
    state_->drawing.locale = locale;
    redraw();
}

void TrendChart::plot(std::shared_ptr<const ChartContents> contents) {
    state_->view.plot(std::move(contents));
    state_->drawing.choice.visible = state_->visibleNext;
    fetchView();
}

void TrendChart::setSeriesColor(int series, const QColor& color) {
    state_->drawing.penColors.at(static_cast<std::size_t>(series)) = color;
    redraw();
}

void TrendChart::setSeriesVisible(int series, bool visible) {
    state_->visibleNext.at(static_cast<std::size_t>(series)) = visible;
}

void TrendChart::setNormalised(bool normalised) {
    state_->drawing.choice.normalised = normalised;
    redraw();
}

void TrendChart::setScale(int series) {
    state_->drawing.choice.series = series;
    redraw();
}

void TrendChart::redraw() {
    state_->drawing.contents = state_->view.shown();
    state_->drawing.isPart = state_->view.shown() != state_->view.whole();
    state_->stale = true;
    update();
    emit viewChanged();
}

void TrendChart::inBackground(std::function<void(const std::function<bool()>&)> work,
                              std::function<void()> done) {
    // The destructor waits for the thread: state and widget outlive the work.
    state_->pool.start([this, work = std::move(work), done = std::move(done)] {
        work([this] { return state_->goesOn.load(); });
        QMetaObject::invokeMethod(this, done, Qt::QueuedConnection);
    });
}

void TrendChart::fetchView() {
    const std::shared_ptr<const ChartContents> whole = state_->view.whole();
    const ChartView::Span span = state_->view.wanted();
    const quint64 request = ++state_->request;
    if (!state_->view.zoomed()) {
        state_->view.present(whole);
        redraw();
        return;
    }
    const auto result = std::make_shared<std::shared_ptr<const ChartContents>>();
    inBackground(
        [whole, span, result](const auto&) { *result = vista(*whole, span.from, span.to); },
        [this, request, result] {
            if (request != state_->request) return;  // another one is under way
            state_->view.present(*result);
            redraw();
        });
}

void TrendChart::zoomTo(qint64 from, qint64 to) {
    if (state_->view.zoomTo({from, to})) fetchView();
}

void TrendChart::zoomIn() {
    if (state_->view.zoomIn()) fetchView();
}

void TrendChart::zoomBack() {
    if (state_->view.zoomBack()) fetchView();
}

void TrendChart::zoomToMarkers() {
    const auto& markers = state_->view.markers();
    if (markers[0] && markers[1]) zoomTo(*markers[0], *markers[1]);
}

void TrendChart::setMarker(int marker) {
    state_->view.mark(static_cast<std::size_t>(marker));
    update();
}

void TrendChart::clearMarkers() {
    state_->view.clearMarkers();
    update();
}

void TrendChart::renderCurves() {
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * ratio).toSize();
    if (!state_->stale && state_->curves.size() == pixels) return;
    if (state_->curves.size() != pixels) state_->curves = QPixmap(pixels);
    state_->curves.setDevicePixelRatio(ratio);
    state_->drawing.font = chartFont(font(), QFontInfo(font()).pixelSize());
    QPainter painter(&state_->curves);
    paintChart(painter, rect(), state_->drawing);
    state_->geometry = state_->drawing.contents
                           ? std::make_unique<ChartGeometry>(state_->drawing, rect())
                           : nullptr;
    state_->stale = false;
}

void TrendChart::paintEvent(QPaintEvent*) {
    renderCurves();
    QPainter painter(this);
    painter.drawPixmap(0, 0, state_->curves);
    if (!state_->geometry) {
        paintHint(painter);
    } else {
        if (state_->dragStart) {
            const QRectF& plot = state_->geometry->plot();
            QColor shade = palette().color(QPalette::Highlight);
            shade.setAlpha(70);
            painter.fillRect(QRectF(QPointF(state_->dragStart->x(), plot.top()),
                                    QPointF(state_->dragEnd.x(), plot.bottom()))
                                     .normalized() &
                                 plot,
                             shade);
        }
        paintCursor(painter, state_->drawing, *state_->geometry, state_->view);
    }
    if (!hasFocus()) return;
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void TrendChart::paintHint(QPainter& painter) {
    painter.setPen(state_->drawing.colors.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("Scegliere i trend e premere \"Aggiorna Dati\"."));
}

void TrendChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const bool looksOther =
        event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!looksOther) return;
    state_->drawing.colors = ChartColors::of(palette());
    redraw();
}

qint64 TrendChart::timeAt(const QPointF& place) const {
    return state_->geometry ? state_->geometry->timeAt(place.x()) : 0;
}

void TrendChart::cursorMoved() {
    setAccessibleDescription(spokenReadout(state_->drawing, state_->view));
    update();
}

void TrendChart::mouseMoveEvent(QMouseEvent* event) {
    if (!state_->geometry) return;
    const QPointF place = event->position();
    if (state_->dragStart) {
        state_->dragEnd = place;
        update();
    }
    const QRectF& plot = state_->geometry->plot();
    if (state_->dragStart || plot.adjusted(-2, -2, 2, 2).contains(place))
        state_->view.cursor(timeAt(place));
    else
        state_->view.cursor(std::nullopt);
    cursorMoved();
}

void TrendChart::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !state_->geometry) return;
    if (!state_->geometry->plot().contains(event->position())) return;
    state_->view.cursor(timeAt(event->position()));
    if (event->modifiers() & Qt::ShiftModifier) {
        setMarker(0);
    } else if (event->modifiers() & Qt::ControlModifier) {
        setMarker(1);
    } else {
        state_->dragStart = event->position();
        state_->dragEnd = event->position();
    }
    cursorMoved();
}

void TrendChart::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !state_->dragStart) return;
    const QPointF start = *std::exchange(state_->dragStart, std::nullopt);
    update();
    if (std::abs(event->position().x() - start.x()) < ShortestDrag) return;
    zoomTo(timeAt(start), timeAt(event->position()));
}

void TrendChart::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) zoomBack();
}

void TrendChart::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    if (state_->dragStart || hasFocus()) return;  // the keyboard's cursor stays
    state_->view.cursor(std::nullopt);
    cursorMoved();
}

void TrendChart::keyPressEvent(QKeyEvent* event) {
    ChartView& view = state_->view;
    const int step = event->modifiers() & Qt::ControlModifier ? BigStep : 1;
    switch (event->key()) {
        case Qt::Key_Left: view.moveCursor(-step); break;
        case Qt::Key_Right: view.moveCursor(step); break;
        case Qt::Key_Home: view.cursorToStart(); break;
        case Qt::Key_End: view.cursorToEnd(); break;
        case Qt::Key_A: setMarker(0); break;
        case Qt::Key_B: setMarker(1); break;
        case Qt::Key_Delete: clearMarkers(); break;
        case Qt::Key_Plus: zoomIn(); break;
        case Qt::Key_Z: zoomToMarkers(); break;
        case Qt::Key_Minus:
        case Qt::Key_Backspace: zoomBack(); break;
        case Qt::Key_Escape:
            if (!view.cursor()) {
                QWidget::keyPressEvent(event);
                return;
            }
            view.cursor(std::nullopt);
            break;
        default:
            if (event->matches(QKeySequence::Copy))
                copyPicture(*this);
            else
                QWidget::keyPressEvent(event);
            return;
    }
    cursorMoved();
}

void TrendChart::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = makeChartMenu(*this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void TrendChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void TrendChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace velt::ui
