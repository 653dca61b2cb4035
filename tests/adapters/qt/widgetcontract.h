// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/qt/qtcheckbox.h"
#include "adapters/qt/qtcombobox.h"
#include "adapters/qt/qtdatacontrol.h"
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtdatepicker.h"
#include "adapters/qt/qtlistview.h"
#include "tests/adapters/qt/testcontrol.h"
#include "tests/fakes/fakedatabase.h"
#include "tests/fakes/fakewidgets.h"
#include "tests/qtmain.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <memory>

namespace velt {

/// The fakes, and how an operator uses them.
struct Fakes {
    fakes::FakeCheckBox box;
    fakes::FakeDatePicker date, time;
    fakes::FakeComboBox combo;
    fakes::FakeListView list;
    fakes::FakeDataControl data;
    fakes::FakeDataGrid grid{data};

    void toggle() { box.toggle(); }
    void editHour(int hour) { time.edit(withHour(time.Value(), hour)); }
    void click(int row) { list.click(row); }
    void doubleClick(int row) { list.doubleClick(row); }
    void moveTo(int position) { data.moveTo(position); }
    void drag(int column, int pixels) { grid.drag(column, pixels * TwipsPerPixel); }

    static Date withHour(const Date& date, int hour) {
        Date::Fields fields = date.fields();
        fields.hour = hour;
        return Date::fromFields(fields);
    }
};

/// The widgets of Qt behind their adapters, used with mouse and keyboard.
struct Real {
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QCheckBox* qBox = new QCheckBox("c", window.get());
    QDateTimeEdit* qDate = new QDateTimeEdit(window.get());
    QDateTimeEdit* qTime = new QDateTimeEdit(window.get());
    QComboBox* qCombo = new QComboBox(window.get());
    QTableView* qList = new QTableView(window.get());
    qt::RecordBar* qBar = new qt::RecordBar(window.get());
    QTableView* qGrid = new QTableView(window.get());

    std::shared_ptr<qt::TestControl> control = std::make_shared<qt::TestControl>(window.get());
    InlineDispatcher dispatcher;
    qt::QtCheckBox box{*control, qBox};
    qt::QtDatePicker date{*control, qDate}, time{*control, qTime};
    qt::QtComboBox combo{*control, qCombo};
    qt::QtListView list{*control, qList};
    qt::QtDataControl data{*control, qBar};
    qt::QtDataGrid grid{*control, qGrid, data, dispatcher, Locale::italian()};

    Real() {
        qDate->setDisplayFormat("dd/MM/yyyy");
        qTime->setDisplayFormat("HH.mm");
        auto* layout = new QVBoxLayout(window.get());
        for (QObject* child : window->children())
            if (auto* widget = qobject_cast<QWidget*>(child)) layout->addWidget(widget);
        window->resize(500, 700);
        window->show();
        settle();
    }
    ~Real() { settle(); }

    void toggle() {
        QTest::keyClick(qBox, Qt::Key_Space);
        settle();
    }
    void editHour(int hour) {
        qTime->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(qTime, QString("%1").arg(hour, 2, 10, QChar('0')));
        QTest::keyClick(qTime, Qt::Key_Return);
        settle();
    }
    static QPoint place(const QTableView* view, int row) {
        return view->visualRect(view->model()->index(row - 1, 0)).center();
    }
    static void click(QTableView* view, int row) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place(view, row));
        settle();
    }
    void click(int row) { click(qList, row); }
    void doubleClick(int row) {
        click(row);
        QTest::mouseDClick(qList->viewport(), Qt::LeftButton, {}, place(qList, row));
        settle();
    }
    void moveTo(int position) { click(qGrid, position); }
    void drag(int column, int pixels) {
        QHeaderView* header = qGrid->horizontalHeader();
        const int border = header->sectionViewportPosition(column) + header->sectionSize(column);
        const QPoint from(border - 1, header->height() / 2);
        const QPoint to = from + QPoint(pixels - header->sectionSize(column), 0);
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, from);
        for (const QPoint& place : {(from + to) / 2, to})
            QTest::mouseMove(header->viewport(), place);
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, to);
        settle();
    }
};

template <typename Side>
class WidgetContract : public testing::Test {
protected:
    /// Writes `what` into the log whenever the event is raised.
    template <typename... Args>
    void note(Event<Args...>& event, const std::string& what) {
        event.subscribe([this, what](Args...) { log += what + " "; });
    }
    std::string takeLog() { return std::exchange(log, {}); }
    /// Bound to the data control; its rows hold a date and their number.
    std::shared_ptr<fakes::FakeRecordset> bind(int rowCount) {
        std::vector<std::vector<Variant>> rows;
        for (int i = 1; i <= rowCount; ++i) rows.push_back({Date(i), std::to_string(i)});
        database.answers["q"] =
            std::make_shared<fakes::FakeRowSet>(std::vector<std::string>{"x_1", "y"}, rows);
        const auto recordset = std::make_shared<fakes::FakeRecordset>(database);
        recordset->Open("q", connection, ado::OpenStatic, ado::LockReadOnly, -1);
        side.data.Recordset(recordset);
        return recordset;
    }

    Side side;
    std::string log;
    fakes::FakeDatabaseState database;
    std::shared_ptr<fakes::FakeConnection> connection =
        std::make_shared<fakes::FakeConnection>(database);
};

}  // namespace velt
