// SPDX-License-Identifier: MIT
// Loading by a form versus assignment by the host, shows, and the end of a control.
#include "widgets/controlwidget.h"

#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"
#include "tests/qtmain.h"
#include "tests/widgets/probewidget.h"

#include <QApplication>
#include <QTabWidget>
#include <QTimer>

#include <gmock/gmock.h>

#include <thread>

namespace velt::ui {
namespace {

class ControlWidgetTest : public testing::Test {
protected:
    ControlWidgetTest() { make(); }
    ~ControlWidgetTest() override {
        widget.reset();
        settle();
    }
    void make() {
        widget = std::make_unique<ProbeWidget>(probe, services);
        widget->setObjectName("Probe1");
        QObject::connect(widget.get(), &ControlWidget::propertyChanged,
                         [this](const QString& name) { changed += name.toStdString() + ";"; });
    }
    /// What has happened since it was last asked, after all that is pending.
    std::string happened() {
        settle();
        return std::exchange(probe.log, {});
    }

    fakes::FakeServices services;
    Probe probe;
    std::unique_ptr<ProbeWidget> widget;
    std::string changed;
};

TEST_F(ControlWidgetTest, WhatTheFormWritesHasNoEffectAndAnotherValueLaterCounts) {
    widget->readSource("form.mdb");
    widget->setProperty("FileIni", "form.ini");
    widget->setProperty("BackColor", QColor(Qt::red));
    EXPECT_EQ(widget->source(), "form.mdb");
    EXPECT_EQ(widget->BackColor(), 0x000000FFU);
    EXPECT_EQ(probe.log, "") << "not even the logic exists";
    EXPECT_EQ(happened(), "live;");
    widget->show();
    EXPECT_EQ(happened(), "start form.mdb;");
    widget->setProperty("FileIni", "form.ini");  // a retranslation writes everything again
    EXPECT_EQ(happened() + changed, "");
    widget->setProperty("FileIni", "b.ini");
    widget->setProperty("BackColor", QColor(Qt::blue));
    EXPECT_EQ(happened(), "settings Probe_Probe1;");
    EXPECT_EQ(changed, "FileIni;BackColor;");
}

TEST_F(ControlWidgetTest, AnAssignmentByTheHostEndsTheLoadingAndTakesEffect) {
    widget->readSource("form.mdb");
    widget->source("host.mdb");
    EXPECT_EQ(probe.log, "live;source host.mdb;");
    widget->FileIni("host.ini");
    widget->FileIni("host.ini");
    widget->BackColor(QColor(0, 0, 255));
    widget->ForeColor(OleColor{0x80000008});
    EXPECT_EQ(widget->BackColor(), 0x00FF0000U);
    EXPECT_EQ(changed, "File;FileIni;FileIni;BackColor;ForeColor;");
    EXPECT_EQ(happened(), "live;source host.mdb;settings Probe_Probe1;settings Probe_Probe1;");
}

TEST_F(ControlWidgetTest, OnlyRealShowsCount) {
    QTabWidget tabs;
    tabs.addTab(new QWidget, "first");
    tabs.addTab(widget.release(), "second");
    tabs.setStyleSheet("QWidget { color: blue; }");
    tabs.show();
    EXPECT_EQ(happened(), "live;") << "a hidden tab loads but does not start";
    tabs.setCurrentIndex(1);
    EXPECT_EQ(happened(), "start ;");
    tabs.setCurrentIndex(0);
    tabs.setCurrentIndex(1);
    EXPECT_EQ(happened(), "start ;") << "each real show counts";
    tabs.showMinimized();
    settle();
    tabs.showNormal();
    EXPECT_EQ(happened(), "") << "the window system's showing again is no show";
}

TEST_F(ControlWidgetTest, NothingStartsAfterTerminate) {
    widget->source("a");
    widget->show();
    widget->Terminate();
    EXPECT_EQ(happened(), "live;source a;release;");
    widget->Terminate();
    EXPECT_EQ(happened(), "release;");
}

TEST_F(ControlWidgetTest, MayBeAssignedToAndDestroyedDuringAWait) {
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
            const int delay = terminates ? 700 : 30;  // after or before the progress window is up
            make();
            probe.onStart = [&] {
                QTimer::singleShot(delay, qApp, [&] {
                    widget->source("too late");
                    EXPECT_EQ(widget->source(), "too late") << "reads back at once";
                    if (terminates) widget->Terminate();
                    widget.reset();
                });
                ignoreErrors(wait);
                probe.log += "waited;";
            };
            widget->show();
            EXPECT_TRUE(eventually([this] { return probe.log.ends_with("destroyed;"); }));
            EXPECT_EQ(happened(), terminates ? "live;start ;waited;release;destroyed;"
                                             : "live;start ;waited;destroyed;");
        }
    }
}

}  // namespace
}  // namespace velt::ui
