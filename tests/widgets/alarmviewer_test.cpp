// SPDX-License-Identifier: MIT
#include "widgets/alarmviewer.h"

#include "adapters/standard/standardservices.h"
#include "alarmviewer/querybuilder.h"
#include "tests/widgets/facetest.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>

namespace velt::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlarmViewerFaceTest : public FaceTest<AlarmViewer> {
protected:
    AlarmViewerFaceTest() {
        services.files.files = {"allarmi.mdb"};
        answer(StationListQuery, {"VRX"}, {{"RTU01"}, {"RTU02"}, {"RTU03"}});
        answer(AlarmListQuery, {"Allarme"}, {{"Livello alto"}, {"Pompa ferma"}});
        std::vector<std::vector<Variant>> rows;
        for (int row = 1; row <= 500; ++row) rows.push_back({Date(row), std::to_string(row)});
        answer(AllAlarms, {"Data", "Nome_RTU"}, rows);
        viewer.setObjectName("AlarmViewer1");
        viewer.File("allarmi.mdb");
        viewer.FileIni("a.ini");
        viewer.show();
        settle();
    }
    void answer(const std::string& query, std::vector<std::string> columns,
                std::vector<std::vector<Variant>> rows) {
        services.fakeDatabase.answers[query] =
            std::make_shared<fakes::FakeRowSet>(std::move(columns), std::move(rows));
    }
    std::string caption() {
        return child<QWidget>("Adodc")->findChild<QLabel*>()->text().toStdString();
    }
    /// Presses Alt and a letter; returns the queries that follow.
    std::vector<std::string> press(Qt::Key letter) {
        services.fakeDatabase.log.clear();
        QTest::keyClick(QApplication::focusWidget(), letter, Qt::AltModifier);
        QTest::qWait(150);  // the button shows itself pressed first
        settle();
        return services.fakeDatabase.log;
    }

    static constexpr const char* AllAlarms =
        "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";
};

TEST_F(AlarmViewerFaceTest, TheFiltersMakeTheQueryAlsoByKeyboard) {
    show();
    press(Qt::Key_S);
    EXPECT_THAT(checked(), ElementsAre("RTU01", "RTU02", "RTU03"));
    press(Qt::Key_D);
    EXPECT_THAT(checked(), IsEmpty());
    auto* list = child<QTableView>("lvVRX");
    list->setCurrentIndex(model("lvVRX")->index(1, 0));
    QTest::keyClick(list, Qt::Key_Space);
    auto* combo = child<QComboBox>("cmbAllarme");
    EXPECT_EQ(combo->currentIndex(), -1);
    click("chkAllarme");
    QTest::keyClick(combo, Qt::Key_End);
    QTest::mouseClick(child("chkDataIniziale"), Qt::LeftButton, {}, QPoint(8, 8));
    auto* time = child<QDateTimeEdit>("TimeIniziale");
    time->setFocus();
    time->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(time, "0730");  // what is being typed counts before the shortcut acts
    const std::int64_t start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0}).milliseconds() / 1000;
    EXPECT_THAT(press(Qt::Key_A),
                ElementsAre("SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi WHERE "
                            "(Data in " +
                            std::to_string(start) +
                            "..- AND Allarme is <Pompa ferma> AND ((VRX = 'RTU02'))) ORDER BY Data "
                            "| 3 3 1 -1"));
    EXPECT_THAT(press(Qt::Key_R).front(), testing::HasSubstr(StationListQuery));
    EXPECT_THAT(checked(), IsEmpty());
}

TEST_F(AlarmViewerFaceTest, KeysMoveTheCurrentRecordAndTheSelectionTogether) {
    viewer.resize(700, 700);
    show();
    auto* grid = child<QTableView>("dg");
    const auto* hint = grid->parentWidget()->findChild<QLabel*>();
    EXPECT_TRUE(hint->isVisible());
    click("cmdAggiornaDati");
    EXPECT_FALSE(hint->isVisible());
    EXPECT_EQ(caption(), "Record 1 of 500");
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal), "Nome RTU");
    grid->setFocus();
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int row;
        int selected;
    } steps[] = {{Qt::Key_Down, {}, 1, 1},
                 {Qt::Key_End, Qt::ControlModifier, 499, 1},
                 {Qt::Key_Up, Qt::ControlModifier, 498, 1},
                 {Qt::Key_Home, Qt::ControlModifier, 0, 1},
                 {Qt::Key_Down, Qt::ControlModifier, 1, 1},
                 {Qt::Key_Down, Qt::ShiftModifier, 2, 2}};
    for (const auto& step : steps) {
        QTest::keyClick(grid, step.key, step.modifiers);
        settle();
        EXPECT_EQ(caption(), "Record " + std::to_string(step.row + 1) + " of 500");
        EXPECT_EQ(grid->selectionModel()->selectedRows().size(), step.selected);
        EXPECT_TRUE(grid->selectionModel()->isRowSelected(step.row)) << step.row;
    }
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    settle();
    EXPECT_EQ(QApplication::clipboard()->text(), "01/01/1900\t2\n02/01/1900\t3");
    QTest::keyClick(grid, Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Primo record");
}

TEST_F(AlarmViewerFaceTest, SavesUnderItsName) {
    const auto& sections = services.settingsFactory.files["a.ini"];
    viewer.Terminate();
    EXPECT_TRUE(sections.contains("AlarmViewer_AlarmViewer1"));
    EXPECT_FALSE(sections.contains("AlarmViewer_"));
    AlarmViewer ofForm(services);
    ofForm.setProperty("FileIni", "a.ini");
    ofForm.show();
    settle();
    ofForm.Terminate();
    EXPECT_TRUE(sections.contains("AlarmViewer_")) << "a FileIni of the form knows no instance";
}

TEST_F(AlarmViewerFaceTest, ColoursReachItsSurfaceAndItsFrame) {
    viewer.BackColor(QColor(1, 2, 3));
    viewer.ForeColor(QColor(4, 5, 6));
    for (const QWidget* widget : {child("frmAllarme"), static_cast<QWidget*>(&viewer)}) {
        EXPECT_EQ(widget->palette().color(QPalette::Window), QColor(1, 2, 3));
        EXPECT_EQ(widget->palette().color(QPalette::WindowText), QColor(4, 5, 6));
    }
}

TEST_F(AlarmViewerFaceTest, TakesTheServicesOfTheProcessWhenItGoesLive) {
    AlarmViewer control;
    setStandardServices(&services);
    control.File("missing.mdb");
    control.show();
    settle();
    setStandardServices(nullptr);
    EXPECT_EQ(services.messages.shown.size(), 1U);
}

}  // namespace
}  // namespace velt::ui
