// SPDX-License-Identifier: MIT
// What ten thousand live variables cost the panel. Without an argument an in-memory server changes
// every one once a second; its part, making up the values, is measured apart and taken off. With
// the URL of a server (velt-demo-server --stations 8 --variables 1250) the real thing. Processor
// time is the whole process's.
#include "adapters/standard/standardservices.h"
#include "bench/qt/heart.h"
#include "tests/fakes/fakeservices.h"
#include "widgets/opcviewer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <vector>

namespace velt {
namespace {

using namespace bench;

constexpr int Items = 10000;
constexpr int Seconds = 20;

DataChangeArgs changes(int second) {
    DataChangeArgs args;
    for (int i = 1; i <= Items; ++i) {
        args.ClientHandles.push_back(i);
        args.ItemValues.emplace_back(0.1 * ((i * 7919 + second * 104729) % 100000));
        args.Qualities.push_back((i + second) % 50 == 0 ? 24 : 192);
        args.TimeStamps.emplace_back(46000.0 + second / 86400.0);
    }
    return args;
}

void turnFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

class Bench {
public:
    Bench(Services& services, const QString& host) : viewer_(services) {
        viewer_.setProperty("Hostname", host);
        viewer_.resize(1200, 900);
        viewer_.show();
        while (child("lvVRX")->model()->rowCount() == 0) turnFor(10);
        turnFor(300);
    }
    ~Bench() { viewer_.Terminate(); }

    QTableView* child(const char* name) { return viewer_.findChild<QTableView*>(name); }
    void click(const char* button) { viewer_.findChild<QAbstractButton*>(button)->click(); }
    void sortBy(int column) {
        emit child("lvItem")->horizontalHeader()->sectionClicked(column);
        turnFor(200);
    }

    /// From the click to all rows, and to all values.
    void fill(bool valuesCome) {
        click("cmdSeleziona");
        turnFor(100);
        QAbstractItemModel* model = child("lvItem")->model();
        (void)heart_.takeWorst();
        QElapsedTimer time;
        time.start();
        click("cmdAggiornaDati");
        while (model->rowCount() < Items) turnFor(5);
        std::printf("all rows listed after %lld ms", static_cast<long long>(time.elapsed()));
        const auto hasValue = [&](int row) {
            return !model->index(row, 1).data().isNull() &&
                   !model->index(row, 1).data().toString().isEmpty();
        };
        for (int row = 0; valuesCome && row < Items; ++row)
            while (!hasValue(row)) turnFor(5);
        if (valuesCome)
            std::printf(", all values after %lld ms", static_cast<long long>(time.elapsed()));
        std::printf(", heartbeat late by at most %.1f ms\n", heart_.takeWorst());
    }
    void measure(const char* what, const std::function<void(int second)>& eachSecond) {
        (void)heart_.takeWorst();
        std::vector<double> shares;
        for (int second = 0; second < Seconds; ++second) {
            const double start = processorTime();
            eachSecond(second);
            const double making = madeIn_;
            madeIn_ = 0;
            turnFor(1000);
            shares.push_back((processorTime() - start - making) / 1000 * 100);
        }
        std::printf("%-48s %5.1f %% of a core, heartbeat late by at most %5.1f ms\n", what,
                    median(shares), heart_.takeWorst());
    }
    void measureAll(const std::function<void(int second)>& eachSecond) {
        measure("10,000 changes a second, sorted by name", eachSecond);
        sortBy(1);
        measure("the same, sorted by value", eachSecond);
        click("chkNonGood");
        measure("the same, filter on: only qualities not Good", eachSecond);
    }
    double madeIn_ = 0;  ///< ms of processor time of making the changes

private:
    ui::OPCViewer viewer_;
    Heart heart_;
};

int runInMemory() {
    fakes::FakeServices services;
    auto& branches = services.opcFactory.plant.branches;
    for (int station = 1; station <= 8; ++station) {
        branches.emplace_back("RTU0" + std::to_string(station),
                              std::vector<fakes::FakePlant::Leaf>());
        for (int i = 1; i <= Items / 8; ++i)
            branches.back().second.push_back({"Variabile" + std::to_string(i)});
    }
    Bench bench(services, {});
    bench.fill(false);
    bench.measureAll([&](int second) {
        const double start = processorTime();
        const DataChangeArgs args = changes(second);
        bench.madeIn_ = processorTime() - start;
        services.opcFactory.server->groups.groups.at("Group")->DataChange.raise(args);
    });
    return 0;
}

int runAgainst(const QString& host) {
    Bench bench(standardServices(), host);
    bench.fill(true);
    bench.measureAll([](int) {});
    return 0;
}

}  // namespace
}  // namespace velt

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return argc > 1 ? velt::runAgainst(argv[1]) : velt::runInMemory();
}
