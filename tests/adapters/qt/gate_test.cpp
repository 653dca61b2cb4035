// SPDX-License-Identifier: MIT
// The rules of waiting: what happens to the entries that arrive while a handler is inside.
#include "adapters/qt/gate.h"

#include "adapters/qt/progressdialog.h"
#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"
#include "adapters/qt/qttimer.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/qtmain.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <atomic>
#include <string>
#include <vector>

namespace velt::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class GateTest : public testing::Test {
protected:
    ~GateTest() override {
        *released = true;
        settle();
        EXPECT_FALSE(Gate::ofProcess().busy());
    }

    Gate::Call note(std::string what) {
        return [this, what = std::move(what)] { log.push_back(what); };
    }
    void soon(const std::function<void()>& call) { QTimer::singleShot(0, &context, call); }
    /// Waits for work that goes on until `released`, or until it is told to stop.
    void wait() {
        try {
            dispatcher.run([released = released](const std::stop_token& stop) {
                while (!stop.stop_requested() && !*released) std::this_thread::yield();
            });
            log.emplace_back("end");
        } catch (const RuntimeError& error) {
            log.push_back("error " + std::to_string(error.Number()));
        }
    }
    /// A handler that waits, while `during` happens; the operator has clicked twice, impatiently.
    void waitWhile(const std::function<void()>& during) {
        *released = false;
        control->operatorInput([this, during] {
            log.emplace_back("begin");
            soon(during);
            wait();
        });
        control->operatorInput(note("second click"));
        ASSERT_TRUE(eventually([this] { return log.size() > 1; }));
        settle();
    }

    QObject context;
    QtDispatcher dispatcher;
    QtMessageBox messages;
    std::shared_ptr<TestControl> control = std::make_shared<TestControl>();
    std::shared_ptr<TestControl> other = std::make_shared<TestControl>();
    std::vector<std::string> log;
    std::shared_ptr<std::atomic<bool>> released = std::make_shared<std::atomic<bool>>(false);
};

TEST_F(GateTest, DuringAWaitInputIsDiscardedAndTheRestFollowsInOrder) {
    QtTimer timer(*control);
    timer.Tick.subscribe([&] {
        note("tick")();
        timer.Enabled(false);
    });
    timer.Interval(1);
    timer.Enabled(true);
    waitWhile([this] {
        QTest::qWait(30);
        EXPECT_FALSE(control->operatorInput(note("input")));
        EXPECT_THROW(dispatcher.run([](const std::stop_token&) {}), RuntimeError)
            << "waits do not nest";
        control->event(&context, note("event, old"));
        control->hostCall(note("host 1"));
        control->event(&context, note("event, new"));
        control->event(nullptr, note("event without key"));
        other->close();
        dispatcher.post(note("posted"));
        control->hostCall(note("host 2"));
        soon([this] { *released = true; });
    });
    EXPECT_THAT(log, ElementsAre("begin", "end", "host 1", "host 2", "tick", "event, new",
                                 "event without key", "posted"));
}

TEST_F(GateTest, TerminationCancelsTheWaitAndRunsFirst) {
    waitWhile([this] {
        control->hostCall(note("host"));
        control->event(nullptr, note("event"));
        other->terminate(note("terminate other"));
        control->terminate(note("terminate"));
    });
    EXPECT_THAT(
        log, ElementsAre("begin", "error 3059", "terminate other", "terminate", "host", "event"));
    log.clear();
    control->hostCall([this] {
        control->terminate(note("terminate"));
        wait();
        EXPECT_THROW(messages.Show("too late", MessageBox::Exclamation, "Errore"), RuntimeError);
        note("handler ends")();
    });
    EXPECT_THAT(log, ElementsAre("error 3059", "handler ends", "terminate"));
    log.clear();
    control->operatorInput([&] {
        soon([this] { control->terminate(note("terminate")); });
        dispatcher.run([released = released](const std::stop_token&) {
            while (!*released) std::this_thread::yield();  // does not listen
        });
    });
    EXPECT_TRUE(eventually([this] { return !log.empty(); }));
    EXPECT_THAT(control->errors, IsEmpty()) << "who cancelled knows";
}

TEST_F(GateTest, QueuedEventsLetTheOperatorHaveATurn) {
    int events = 0;
    std::function<void()> again = [&] {
        ++events;
        control->event(&context, again);
    };
    control->event(&context, again);
    control->operatorInput([&] { again = [] {}; });
    settle();
    EXPECT_LT(events, 10);
}

TEST_F(GateTest, DuringAWaitOnlyTheProgressWindowIsInUse) {
    QWidget window;
    auto* edit = new QLineEdit(&window);
    control = std::make_shared<TestControl>(&window);
    window.show();
    const auto progress = [&] { return window.findChild<ProgressDialog*>(); };
    waitWhile([&] {
        QTest::keyClicks(edit, "typed");
        ASSERT_TRUE(eventually(progress));
        QTest::keyClicks(edit, "typed");
        EXPECT_FALSE(progress()->isModal()) << "the window below could not be closed";
        auto* button = progress()->findChild<QPushButton*>();
        EXPECT_EQ(button->text(), "Annulla");
        QTest::mouseClick(button, Qt::LeftButton);
    });
    EXPECT_THAT(log, ElementsAre("begin", "error 3059"));
    EXPECT_EQ(progress(), nullptr);
    EXPECT_EQ(edit->text(), "");
    QTest::keyClicks(edit, "typed");
    EXPECT_EQ(edit->text(), "typed");
}

TEST_F(GateTest, AClosedControlCancelsItsOwnWaitAndLivesUntilItsHandlerHasEnded) {
    const std::weak_ptr<TestControl> life = control;
    waitWhile([this] {
        control->hostCall(note("host"));
        control->event(nullptr, note("event"));
        control->terminate(note("terminate"));
        control->close();
        EXPECT_FALSE(control->operatorInput(note("input")));
        control->hostCall(note("host after"));
        control.reset();
    });
    EXPECT_THAT(log, ElementsAre("begin", "error 3059", "terminate"));
    EXPECT_TRUE(life.expired());
}

TEST_F(GateTest, TheEndOfTheProgramEndsEveryWait) {
    control->operatorInput([this] {
        QTimer::singleShot(30, &context, [] { QApplication::quit(); });
        wait();
        wait();
    });
    QApplication::exec();
    EXPECT_THAT(log, ElementsAre("error 3059", "error 3059"));
}

TEST_F(GateTest, AnErrorEndsAtTheGuardOfItsControlAlsoOutOfASourcesEvent) {
    const ExpectedWarning standard("errore 0: vector");
    const ExpectedWarning foreign("errore 0: Errore sconosciuto");
    const ExpectedWarning own("errore 9: uno");
    control->hostCall([] { std::vector<int>().at(3); });
    control->event(nullptr, [] { throw 5; });
    dispatcher.post([] { throw 5; });  // belongs to no control
    const auto fail = [] { throw RuntimeError(9, "uno"); };
    control->handle(fail);
    // As a source does it: in a call that belongs to nobody.
    Gate::ofProcess().event(nullptr, nullptr, [&] {
        control->handle(fail);
        note("the source goes on")();
    });
    EXPECT_THAT(log, ElementsAre("the source goes on"));
    settle();
    EXPECT_THAT(control->errors,
                ElementsAre(StartsWith("0 vector"), "0 Errore sconosciuto", "9 uno", "9 uno"));
}

}  // namespace
}  // namespace velt::qt
