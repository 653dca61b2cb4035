// SPDX-License-Identifier: MIT
// Loading by a form versus assignment by the host, shows, and the end of a control.
#include "widgets/controlwidget.h"

#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"
#include "tests/qtmain.h"
#include "tests/widgets/probewidget.h"

#include <QApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <gmock/gmock.h>

#include <thread>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ControlWidgetTest : public testing::Test {
protected:
    ControlWidgetTest() { make(); }
    ~ControlWidgetTest() override {
        widget.reset();
        settle();
    }
    void make(QWidget* parent = nullptr) {
        widget = std::make_unique<ProbeWidget>(probe, services, parent);
        widget->setObjectName("Probe1");
        changed.clear();
        QObject::connect(widget.get(), &ControlWidget::propertyChanged,
                         [this](const QString& name) { changed.push_back(name.toStdString()); });
        QObject::connect(widget.get(), &ControlWidget::runtimeError,
                         [this](int number, const QString& text) {
                             errors.push_back(std::to_string(number) + " " + text.toStdString());
                         });
    }
    std::vector<std::string> takeLog() { return std::exchange(probe.log, {}); }

    fakes::FakeServices services;
    Probe probe;
    std::unique_ptr<ProbeWidget> widget;
    std::vector<std::string> changed;
    std::vector<std::string> errors;
};

TEST_F(ControlWidgetTest, WhatTheFormWritesHasNoEffect) {
    widget->readFile("form.mdb");
    widget->setProperty("FileIni", "form.ini");
    widget->setProperty("BackColor", QColor(Qt::red));
    EXPECT_EQ(widget->File(), "form.mdb");
    EXPECT_EQ(widget->BackColor(), 0x000000FFU);
    EXPECT_THAT(takeLog(), IsEmpty()) << "not even the logic exists";
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("live"));
    widget->show();
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("start form.mdb"));
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(ControlWidgetTest, AnAssignmentByTheHostEndsTheLoadingAndTakesEffect) {
    widget->readFile("form.mdb");
    widget->File("host.mdb");
    EXPECT_THAT(takeLog(), ElementsAre("live", "source host.mdb"));
    widget->FileIni("host.ini");
    widget->FileIni("host.ini");
    EXPECT_THAT(takeLog(), ElementsAre("settings Probe_Probe1", "settings Probe_Probe1"));
    widget->BackColor(QColor(0, 0, 255));
    widget->ForeColor(OleColor{0x80000008});
    EXPECT_EQ(widget->BackColor(), 0x00FF0000U);
    EXPECT_THAT(changed, ElementsAre("File", "FileIni", "FileIni", "BackColor", "ForeColor"));
    settle();
    EXPECT_THAT(takeLog(), IsEmpty());
}

TEST_F(ControlWidgetTest, AfterLoadingSetPropertyCountsWhenItChangesSomething) {
    widget->setProperty("FileIni", "a.ini");
    settle();
    takeLog();
    widget->setProperty("FileIni", "a.ini");  // a retranslation writes everything again
    EXPECT_THAT(takeLog(), IsEmpty());
    widget->setProperty("FileIni", "b.ini");
    EXPECT_THAT(takeLog(), ElementsAre("settings Probe_Probe1"));
    widget->setProperty("BackColor", QColor(Qt::red));
    EXPECT_THAT(changed, ElementsAre("FileIni", "BackColor"));
}

TEST_F(ControlWidgetTest, AHiddenTabLoadsButDoesNotStart) {
    QTabWidget tabs;
    tabs.addTab(new QWidget, "first");
    make();
    ControlWidget* control = widget.release();
    tabs.addTab(control, "second");
    tabs.setStyleSheet("QWidget { color: blue; }");
    takeLog();
    tabs.show();
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("live"));
    tabs.setCurrentIndex(1);
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("start "));
    tabs.setCurrentIndex(0);
    tabs.setCurrentIndex(1);
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("start ")) << "each real show counts";
}

TEST_F(ControlWidgetTest, OnlyRealShowsCount) {
    widget->show();
    settle();
    takeLog();
    widget->showMinimized();
    settle();
    widget->showNormal();
    settle();
    EXPECT_THAT(takeLog(), IsEmpty()) << "the window system's showing again is no show";
}

TEST_F(ControlWidgetTest, DesignModeStartsNothing) {
    widget->setDesignMode(true);
    widget->File("host.mdb");
    widget->FileIni("host.ini");
    widget->show();
    settle();
    widget->Terminate();
    EXPECT_THAT(takeLog(), ElementsAre("live"));
    EXPECT_THAT(changed, ElementsAre("File", "FileIni"));
}

TEST_F(ControlWidgetTest, AfterTerminateAPendingShowDoesNotStart) {
    widget->File("a");
    widget->show();
    widget->Terminate();
    settle();
    EXPECT_THAT(takeLog(), ElementsAre("live", "source a", "release"));
    widget->Terminate();
    EXPECT_THAT(takeLog(), ElementsAre("release"));
}

TEST_F(ControlWidgetTest, AnErrorOfTheLogicIsAnnouncedNotThrown) {
    const ExpectedWarning warning("errore 13: tipo");
    probe.onSource = [] { throw RuntimeError(13, "tipo"); };
    widget->File("a");
    EXPECT_THAT(errors, ElementsAre("13 tipo"));
}

TEST_F(ControlWidgetTest, DuringAWaitTheHostsAssignmentsQueueAndReadBackAtOnce) {
    qt::QtDispatcher dispatcher;
    probe.onStart = [&] {
        QTimer::singleShot(0, widget.get(), [&] {
            widget->File("b");
            EXPECT_EQ(widget->File(), "b");
            EXPECT_THAT(probe.log, ElementsAre("live", "start "));
        });
        dispatcher.run([](const std::stop_token&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(60));
        });
        probe.log.emplace_back("started");
    };
    widget->show();
    EXPECT_TRUE(eventually([this] { return probe.log.size() == 4; }));
    EXPECT_THAT(takeLog(), ElementsAre("live", "start ", "started", "source b"));
}

TEST_F(ControlWidgetTest, MayBeDestroyedDuringAWait) {
    qt::QtDispatcher dispatcher;
    qt::QtMessageBox messages;
    const std::function<void()> waits[] = {
        [&] {
            dispatcher.run([](const std::stop_token& stop) {
                while (!stop.stop_requested()) std::this_thread::yield();
            });
        },
        [&] { messages.Show("aperto", MessageBox::Exclamation, "Errore"); }};
    for (const auto& wait : waits) {
        for (const bool terminates : {false, true}) {
            for (const int delay : {30, 700}) {  // before and after the progress window is up
                make();
                takeLog();
                probe.onStart = [&] {
                    QTimer::singleShot(delay, qApp, [&] {
                        widget->File("too late");
                        if (terminates) widget->Terminate();
                        widget.reset();
                    });
                    try {
                        wait();
                        probe.log.emplace_back("ended");
                    } catch (const RuntimeError& error) {
                        probe.log.push_back(std::to_string(error.Number()));
                    }
                    EXPECT_TRUE(probe.log.back() == "3059" || probe.log.back() == "ended");
                    probe.log.pop_back();
                };
                widget->show();
                EXPECT_TRUE(eventually(
                    [this] { return !probe.log.empty() && probe.log.back() == "destroyed"; }));
                if (terminates)
                    EXPECT_THAT(takeLog(), ElementsAre("live", "start ", "release", "destroyed"));
                else
                    EXPECT_THAT(takeLog(), ElementsAre("live", "start ", "destroyed"));
            }
        }
    }
    EXPECT_THAT(errors, IsEmpty());
}

}  // namespace
}  // namespace velt::ui
