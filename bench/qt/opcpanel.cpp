// SPDX-License-Identifier: MIT
// What ten thousand live variables cost the panel: an in-memory server changes every one once a
// second, and the window paints. Processor time of the whole process; the server's part, making up
// the values, is measured apart and taken off.
#include "tests/fakes/fakeservices.h"
#include "widgets/opcviewer.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace velt {
namespace {

constexpr int Items = 10000;
constexpr int Seconds = 20;
constexpr int Beat = 10;  // ms

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

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

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Share of a core in percent, and the heartbeat's worst lateness in ms.
void measure(const char* what, fakes::FakeOPCGroup& group) {
    double worst = 0;
    QElapsedTimer sinceBeat;
    sinceBeat.start();
    QTimer heart;
    heart.setTimerType(Qt::PreciseTimer);
    QObject::connect(&heart, &QTimer::timeout, [&] {
        worst = std::max(worst, static_cast<double>(sinceBeat.nsecsElapsed()) / 1e6 - Beat);
        sinceBeat.start();
    });
    heart.start(Beat);
    std::vector<double> shares;
    for (int second = 0; second < Seconds; ++second) {
        const double start = processorTime();
        const DataChangeArgs args = changes(second);
        const double server = processorTime() - start;
        group.DataChange.raise(args);
        turnFor(1000);
        shares.push_back((processorTime() - start - server) / 1000 * 100);
    }
    std::printf("%-48s %5.1f %% of a core, heartbeat late by at most %5.1f ms\n", what,
                median(shares), worst);
}

int run() {
    fakes::FakeServices services;
    auto& branches = services.opcFactory.plant.branches;
    for (int station = 1; station <= 8; ++station) {
        branches.emplace_back("RTU0" + std::to_string(station),
                              std::vector<fakes::FakePlant::Leaf>());
        for (int i = 1; i <= Items / 8; ++i)
            branches.back().second.push_back({"Variabile" + std::to_string(i)});
    }
    ui::OPCViewer viewer(services);
    viewer.resize(1200, 900);
    viewer.show();
    turnFor(200);
    const auto click = [&](const char* name) {
        viewer.findChild<QPushButton*>(name)->click();
        turnFor(100);
    };
    click("cmdSeleziona");
    click("cmdAggiornaDati");
    auto* table = viewer.findChild<QTableView*>("lvItem");
    while (table->model()->rowCount() < Items) turnFor(100);
    fakes::FakeOPCGroup& group = *services.opcFactory.server->groups.groups.at("Group");
    measure("10,000 changes a second, sorted by name", group);
    auto* header = table->horizontalHeader();
    emit header->sectionClicked(1);
    turnFor(200);
    measure("the same, sorted by value", group);
    viewer.findChild<QAbstractButton*>("chkNonGood")->click();
    measure("the same, filter on: only qualities not Good", group);
    viewer.Terminate();
    return 0;
}

}  // namespace
}  // namespace velt

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return velt::run();
}
