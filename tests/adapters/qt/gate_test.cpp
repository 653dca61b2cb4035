// SPDX-License-Identifier: MIT
// The rules of waiting: what happens to the entries that arrive while a handler is inside.
#include "adapters/qt/gate.h"

#include "adapters/qt/qtdispatcher.h"
#include "adapters/qt/qtmessagebox.h"
#include "adapters/qt/qttimer.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/qtmain.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <string>
#include <vector>

namespace velt::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GateTest : public testing::Test {
protected:
    ~GateTest() override {
        settle();
        EXPECT_FALSE(Gate::ofProcess().busy());
    }

    Gate::Call note(std::string what) {
        return [this, what = std::move(what)] { log.push_back(what); };
    }
    /// A handler that waits, while `during` happens, until `release` is fulfilled by it or later.
    void waitWhile(const std::function<void()>& during, bool finishes = true) {
        control->operatorInput([this, during, finishes] {
            log.emplace_back("begin");
            std::promise<void> go;
            QTimer::singleShot(0, &context, [&] {
                during();
                if (finishes) QTimer::singleShot(0, &context, [&] { go.set_value(); });
            });
            try {
                dispatcher.run([released = go.get_future().share()](const std::stop_token& stop) {
                    while (!stop.stop_requested() && released.wait_for(std::chrono::milliseconds(
                                                         1)) != std::future_status::ready) {
                    }
                });
                log.emplace_back("end");
            } catch (const RuntimeError& error) {
                log.push_back("error " + std::to_string(error.Number()));
            }
        });
        ASSERT_TRUE(eventually([this] { return !log.empty() && log.front() == "begin"; }));
        settle();
    }

    QObject context;
    QtDispatcher dispatcher;
    QtMessageBox messages;
    std::shared_ptr<TestControl> control = std::make_shared<TestControl>();
    std::shared_ptr<TestControl> other = std::make_shared<TestControl>();
    std::vector<std::string> log;
};

TEST_F(GateTest, DuringAWaitInputIsDiscardedAndTheRestFollowsInOrder) {
    waitWhile([this] {
        EXPECT_FALSE(control->operatorInput(note("input")));
        EXPECT_FALSE(other->operatorInput(note("input of another")));
        EXPECT_THROW(dispatcher.run([](const std::stop_token&) {}), RuntimeError)
            << "waits do not nest";
        control->event(&context, note("event, old"));
        control->hostCall(note("host 1"));
        control->event(nullptr, note("event without key 1"));
        control->event(&context, note("event, new"));
        other->event(&context, note("event of another"));
        control->event(nullptr, note("event without key 2"));
        dispatcher.post(note("posted"));
        control->hostCall(note("host 2"));
    });
    EXPECT_THAT(log,
                ElementsAre("begin", "end", "host 1", "host 2", "event, new", "event without key 1",
                            "event of another", "event without key 2", "posted"));
}

TEST_F(GateTest, TerminationCancelsTheWaitAndRunsFirst) {
    waitWhile(
        [this] {
            control->hostCall(note("host"));
            control->event(nullptr, note("event"));
            other->terminate(note("terminate other"));
            control->terminate(note("terminate"));
        },
        false);
    EXPECT_THAT(
        log, ElementsAre("begin", "error 3059", "terminate other", "terminate", "host", "event"));
}

TEST_F(GateTest, AfterATerminationTheHandlerCannotWaitAgain) {
    control->hostCall([this] {
        control->terminate(note("terminate"));
        EXPECT_THROW(dispatcher.run([this](const std::stop_token&) { note("worked")(); }),
                     RuntimeError);
        EXPECT_THROW(messages.Show("too late", MessageBox::Exclamation, "Errore"), RuntimeError);
        note("handler ends")();
    });
    EXPECT_THAT(log, ElementsAre("handler ends", "terminate"));
}

TEST_F(GateTest, InputTakenBeforeTheWaitIsDiscardedAsWell) {
    // Two clicks in one go: the second one is delivered while the first one's handler waits.
    std::promise<void> go;
    control->operatorInput([this, &go] {
        QTimer::singleShot(0, &context, [&go] { go.set_value(); });
        dispatcher.run([&go](const std::stop_token&) { go.get_future().wait(); });
        note("first")();
    });
    control->operatorInput(note("second"));
    ASSERT_TRUE(eventually([this] { return !log.empty(); }));
    settle();
    EXPECT_THAT(log, ElementsAre("first"));
}

TEST_F(GateTest, AnEventDoesNotOvertakeOnesThatAreQueued) {
    control->hostCall([this] {
        control->event(&context, note("old"));
        control->event(&other, note("other"));
    });
    control->event(&context, note("new"));  // the handler has ended, the queue has not run yet
    EXPECT_THAT(log, IsEmpty());
    settle();
    EXPECT_THAT(log, ElementsAre("new", "other"));
}

TEST_F(GateTest, EventsThatBringAboutEventsLetTheOperatorHaveATurn) {
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

TEST_F(GateTest, TimersCoalesceDuringAHandler) {
    QtTimer timer(*control);
    int ticks = 0;
    timer.Tick.subscribe([&] {
        ++ticks;
        timer.Enabled(false);
    });
    timer.Interval(1);
    timer.Enabled(true);
    waitWhile([] { QTest::qWait(30); });
    EXPECT_EQ(ticks, 1);
}

TEST_F(GateTest, CancelDoesNotWaitForWorkThatHangs) {
    std::promise<void> hang;
    auto released = hang.get_future().share();
    control->operatorInput([&] {
        QTimer::singleShot(50, &context, [this] { control->terminate(note("terminate")); });
        dispatcher.run([released](const std::stop_token&) { released.wait(); });
    });
    EXPECT_TRUE(eventually([this] { return !log.empty(); }));
    EXPECT_THAT(control->errors, IsEmpty()) << "who cancelled knows";
    hang.set_value();
}

TEST_F(GateTest, TheOperatorCancelsFromTheProgressWindow) {
    std::atomic<bool> stopped = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &context, [&] {
        QWidget* progress = QApplication::activeModalWidget();
        if (!progress) return;
        poll.stop();
        auto* button = progress->findChild<QPushButton*>();
        EXPECT_EQ(button->text(), "Annulla");
        QTest::mouseClick(button, Qt::LeftButton);
    });
    poll.start(10);
    control->operatorInput([&] {
        try {
            dispatcher.run([&stopped](const std::stop_token& stop) {
                while (!stop.stop_requested()) std::this_thread::yield();
                stopped = true;
            });
        } catch (const RuntimeError& error) {
            log.push_back(error.is(ErrorNumber::Cancelled) ? "cancelled" : "?");
        }
    });
    EXPECT_TRUE(eventually([this] { return !log.empty(); }));
    EXPECT_TRUE(eventually([&] { return stopped.load(); })) << "the work was told";
    EXPECT_THAT(log, ElementsAre("cancelled"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(GateTest, WindowsTakeNoInputDuringAWait) {
    QWidget window;
    auto* edit = new QLineEdit(&window);
    window.show();
    waitWhile([&] { QTest::keyClicks(edit, "typed"); });
    EXPECT_EQ(edit->text(), "");
    QTest::keyClicks(edit, "typed");
    EXPECT_EQ(edit->text(), "typed");
}

TEST_F(GateTest, AnyExceptionEndsAtTheGuard) {
    const ExpectedWarning standard("errore 0: vector");
    const ExpectedWarning foreign("errore 0: Errore sconosciuto");
    control->hostCall([] { std::vector<int>().at(3); });
    control->event(nullptr, [] { throw 5; });
    dispatcher.post([] { throw 5; });  // belongs to no control
    settle();
    EXPECT_EQ(control->errors.size(), 2U);
}

TEST_F(GateTest, AClosedControlLivesUntilItsHandlerHasEnded) {
    const std::weak_ptr<TestControl> life = control;
    waitWhile(
        [this] {
            control->hostCall(note("host"));
            control->event(nullptr, note("event"));
            control->terminate(note("terminate"));
            control->close();
            EXPECT_FALSE(control->operatorInput(note("input")));
            control->hostCall(note("host after"));
            control.reset();
        },
        false);
    EXPECT_THAT(log, ElementsAre("begin", "error 3059", "terminate"));
    EXPECT_TRUE(life.expired());
}

TEST_F(GateTest, ClosingAControlCancelsItsOwnWaitOnly) {
    waitWhile([this] { other->close(); });
    EXPECT_THAT(log, ElementsAre("begin", "end"));
    log.clear();
    waitWhile([this] { control->close(); }, false);
    EXPECT_THAT(log, ElementsAre("begin", "error 3059"));
}

TEST_F(GateTest, AMessageKeepsTheHandlerInside) {
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &context, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) return;
        poll.stop();
        EXPECT_EQ(box->text(), "riga 1\nriga 2");
        EXPECT_EQ(box->windowTitle(), "Errore");
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_FALSE(control->operatorInput(note("input")));
        control->hostCall(note("host"));
        box->buttons().first()->click();
    });
    poll.start(10);
    control->operatorInput([this] {
        messages.Show("riga 1\r\nriga 2", MessageBox::Exclamation, "Errore");
        note("confirmed")();
    });
    EXPECT_TRUE(eventually([this] { return log.size() == 2; }));
    EXPECT_THAT(log, ElementsAre("confirmed", "host"));
}

TEST_F(GateTest, TheEndOfTheProgramEndsAWait) {
    QTimer::singleShot(0, &context, [this] {
        control->operatorInput([this] {
            QTimer::singleShot(30, &context, [] { QApplication::quit(); });
            for (int i = 0; i < 2; ++i) {
                try {
                    dispatcher.run([](const std::stop_token& stop) {
                        while (!stop.stop_requested()) std::this_thread::yield();
                    });
                } catch (const RuntimeError& error) {
                    log.push_back(std::to_string(error.Number()));
                }
            }
        });
    });
    QApplication::exec();
    EXPECT_THAT(log, ElementsAre("3059", "3059"));
}

TEST_F(GateTest, TheHandlerOfASourcesEventBelongsToItsControl) {
    const auto fail = [](const char* text) { return [text] { throw RuntimeError(9, text); }; };
    {
        const ExpectedWarning first("one");
        const ExpectedWarning second("two");
        control->handle(fail("one"));
        // As a source does it: in a call that belongs to nobody.
        Gate::ofProcess().event(nullptr, nullptr, [&] {
            control->handle(fail("two"));
            note("the source goes on")();
        });
    }
    EXPECT_THAT(control->errors, ElementsAre("9 one", "9 two"));
    EXPECT_THAT(log, ElementsAre("the source goes on"));

    // Its control is kept alive, and its wait is ended when the control goes.
    log.clear();
    const std::weak_ptr<TestControl> watched = control;
    dispatcher.post([&] {
        control->handle([&] {
            QTimer::singleShot(0, &context, [&] {
                control->close();
                control.reset();
            });
            try {
                dispatcher.run([](const std::stop_token& stop) {
                    while (!stop.stop_requested()) std::this_thread::yield();
                });
            } catch (const RuntimeError& error) {
                log.push_back(std::to_string(error.Number()));
            }
            if (!watched.expired()) log.emplace_back("alive");
        });
    });
    EXPECT_TRUE(eventually([&] { return watched.expired(); }));
    EXPECT_THAT(log, ElementsAre("3059", "alive"));
}

}  // namespace
}  // namespace velt::qt
