// SPDX-License-Identifier: MIT
// How long the window stays deaf while the alarm viewer works on a large file. A timer of 10 ms on
// the user-interface thread says how late it comes; a thread that only sleeps says how late the
// machine itself is.
#include "adapters/qt/progressdialog.h"
#include "adapters/qt/qtdispatcher.h"
#include "bench/qt/heart.h"
#include "demo/alarmdatabase.h"
#include "demo/alarmgenerator.h"
#include "platform/clock.h"
#include "platform/runtimeerror.h"
#include "tests/tempfolder.h"
#include "widgets/alarmviewer.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <future>
#include <thread>
#include <vector>

namespace velt {
namespace {

using namespace bench;

constexpr int Repeats = 5;

/// Time from the arrival of rows in a grid to the end of their first painting.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(QTableView* view) : view_(view) {
        connect(view->model(), &QAbstractItemModel::modelReset, this, [this] {
            if (armed_ || view_->model()->rowCount() == 0) return;
            armed_ = true;
            start_ = SteadyClock::now();
            view_->viewport()->installEventFilter(this);
        });
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        watched->removeEventFilter(this);
        QCoreApplication::sendEvent(watched, event);
        times.push_back(since(start_));
        armed_ = false;
        return true;
    }
    std::vector<double> times;

private:
    QTableView* view_;
    bool armed_ = false;
    SteadyClock::time_point start_;
};

void measureViewer(Heart& heart, const QString& file) {
    ui::AlarmViewer viewer;
    viewer.resize(1000, 640);
    auto* grid = viewer.findChild<QTableView*>("dg");
    auto* stations = viewer.findChild<QTableView*>("lvVRX");
    auto* refresh = viewer.findChild<QPushButton*>("cmdAggiornaDati");
    heart.measure("first show: station and alarm lists", [&] {
        viewer.File(file);
        viewer.show();
        waitFor([&] { return stations->model() && stations->model()->rowCount() > 0; });
    });

    FirstPaint firstPaint(grid);
    std::size_t painted = 0;
    for (int i = 0; i < Repeats; ++i) {
        heart.measure("Aggiorna Dati: all rows into the grid", [&] {
            refresh->click();
            waitFor([&] { return firstPaint.times.size() > painted; });
            painted = firstPaint.times.size();
        });
    }
    std::printf("rows in the grid: %d\n", grid->model()->rowCount());
    figure("grid: rows arrived to first paint done", firstPaint.times);

    grid->setFocus();
    heart.measure("select all rows", [&] {
        grid->selectAll();
        QCoreApplication::processEvents();
    });
    heart.measure("copy them to the clipboard", [&] {
        bool copied = false;
        QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, grid,
                         [&copied] { copied = true; });
        grid->actions().first()->trigger();
        waitFor([&copied] { return copied; });
        QGuiApplication::clipboard()->disconnect(grid);
    });

    std::vector<double> terminations;
    for (int i = 0; i < Repeats; ++i) {
        SteadyClock::time_point start;
        refresh->click();
        QTimer::singleShot(100, &viewer, [&] {
            start = SteadyClock::now();
            viewer.Terminate();
        });
        waitFor(
            [&] { return start != SteadyClock::time_point() && grid->model()->rowCount() == 0; });
        terminations.push_back(since(start));
        refresh->click();
        waitFor([&] { return grid->model()->rowCount() > 0; });
    }
    figure("Terminate() during the query to its end", terminations);
}

void measureCancel() {
    qt::QtDispatcher dispatcher;
    std::promise<void> end;
    const auto released = end.get_future().share();
    std::vector<double> latencies;
    for (int i = 0; i < Repeats; ++i) {
        SteadyClock::time_point start;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (!qobject_cast<qt::ProgressDialog*>(window)) continue;
                poll.stop();
                start = SteadyClock::now();
                return window->findChild<QPushButton*>()->click();
            }
        });
        poll.start(10);
        try {
            dispatcher.run([released](const std::stop_token&) { released.wait(); });
        } catch (const RuntimeError&) {
            latencies.push_back(since(start));
        }
    }
    end.set_value();
    figure("Annulla to the return from work that hangs", latencies);
}

int run(int argc, char** argv) {
    // By itself without a display; with QT_QPA_PLATFORM=xcb on one.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const TempFolder folder;
    std::string file = argc > 1 ? argv[1] : (folder / "Allarmi.mdb").string();
    if (argc <= 1) {
        const Date now = SystemClock().now();
        demo::AlarmGenerator generator(1);
        const auto alarms = generator.history(now.addSeconds(-365.0 * 86400), now, 1000000);
        demo::AlarmDatabase::create(file, alarms);
        std::printf("%zu alarms written\n", alarms.size());
    }
    Heart heart;
    heart.measure("idle", [] {
        const auto start = SteadyClock::now();
        waitFor([&] { return since(start) > 1000; });
    });
    measureViewer(heart, QString::fromStdString(file));
    measureCancel();
    return 0;
}

}  // namespace
}  // namespace velt

int main(int argc, char** argv) { return velt::run(argc, argv); }
