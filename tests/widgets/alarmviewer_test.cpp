// SPDX-License-Identifier: MIT
// The alarm viewer as an operator uses it, over fake services.
#include "widgets/alarmviewer.h"

#include "alarmviewer/querybuilder.h"
#include "tests/fakes/fakeservices.h"
#include "tests/qtmain.h"

#include <QBuffer>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QUiLoader>
#include <QVBoxLayout>

#include <gmock/gmock.h>

namespace velt::ui {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

std::shared_ptr<const RowSet> column(const std::string& name,
                                     const std::vector<std::string>& texts) {
    std::vector<std::vector<Variant>> rows;
    for (const std::string& text : texts) rows.push_back({text});
    return std::make_shared<fakes::FakeRowSet>(std::vector{name}, std::move(rows));
}

class AlarmViewerFaceTest : public testing::Test {
protected:
    AlarmViewerFaceTest() {
        services.files.files = {"allarmi.mdb"};
        auto& answers = services.fakeDatabase.answers;
        answers[StationListQuery] = column("VRX", {"RTU01", "RTU02", "RTU03"});
        answers[AlarmListQuery] = column("Allarme", {"Livello alto", "Pompa ferma"});
        answers[AllAlarms] = std::make_shared<fakes::FakeRowSet>(
            std::vector<std::string>{"Data", "Nome_RTU"},
            std::vector<std::vector<Variant>>{{Date(38790.5), "RTU01"}, {Date(38791.5), "RTU02"}});
        viewer.setObjectName("AlarmViewer1");
    }
    ~AlarmViewerFaceTest() override { settle(); }

    void start() {
        viewer.File("allarmi.mdb");
        viewer.FileIni("a.ini");
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.activateWindow();
        settle();
    }
    template <typename T>
    T* child(const char* name) {
        T* found = viewer.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QPushButton* button(const char* name) { return child<QPushButton>(name); }
    std::string caption() {
        return child<QWidget>("Adodc")->findChild<QLabel*>()->text().toStdString();
    }
    std::vector<std::string> checkedStations() {
        QAbstractItemModel* model = child<QTableView>("lvVRX")->model();
        std::vector<std::string> texts;
        for (int row = 0; row < model->rowCount(); ++row)
            if (model->index(row, 0).data(Qt::CheckStateRole) == Qt::Checked)
                texts.push_back(model->index(row, 0).data().toString().toStdString());
        return texts;
    }
    void refresh() {
        QTest::mouseClick(button("cmdAggiornaDati"), Qt::LeftButton);
        settle();
    }

    static constexpr const char* AllAlarms =
        "SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi ORDER BY Data";
    fakes::FakeServices services;
    AlarmViewer viewer{services};
};

TEST_F(AlarmViewerFaceTest, BearsTheCaptionsThatOperatorsKnow) {
    EXPECT_EQ(button("cmdSeleziona")->text(), "&Seleziona Tutti");
    EXPECT_EQ(button("cmdDeseleziona")->text(), "&Deseleziona Tutti");
    EXPECT_EQ(button("cmdAggiornaVRX")->text(), "      Aggiorna lista     &RTU e Allarmi");
    EXPECT_EQ(button("cmdAggiornaDati")->text(), "&Aggiorna Dati");
    EXPECT_EQ(child<QGroupBox>("frmAllarme")->title(), " Allarme ");
    EXPECT_EQ(child<QCheckBox>("chkAllarme")->text(), "Abilita condizione");
    EXPECT_EQ(child<QDateTimeEdit>("TimeIniziale")->displayFormat(), "HH.mm");
    EXPECT_EQ(child<QDateTimeEdit>("TimeFinale")->displayFormat(), "HH.mm");
    QPushButton* lists = button("cmdAggiornaVRX");
    EXPECT_GE(lists->height(), 2 * lists->fontMetrics().height()) << "two lines";
    EXPECT_EQ(lists->accessibleName(), "Aggiorna lista RTU e Allarmi");
}

TEST_F(AlarmViewerFaceTest, EveryInputHasANameForWhoCannotSeeIt) {
    start();
    refresh();
    const auto inputs = viewer.findChildren<QWidget*>();
    for (const QWidget* input : inputs) {
        const bool isPartOfAnother = input->parentWidget()->inherits("QAbstractSpinBox") ||
                                     input->parentWidget()->inherits("QAbstractScrollArea") ||
                                     input->inherits("QScrollBar") || !input->isVisible();
        if (isPartOfAnother || !(input->focusPolicy() & Qt::TabFocus)) continue;
        const auto* asButton = qobject_cast<const QAbstractButton*>(input);
        EXPECT_FALSE(input->accessibleName().isEmpty() && (!asButton || asButton->text().isEmpty()))
            << input->metaObject()->className() << " " << input->objectName().toStdString();
    }
}

TEST_F(AlarmViewerFaceTest, TabGoesThroughTheFiltersInTheirOrder) {
    start();
    const char* order[] = {"chkDataIniziale", "DataIniziale",   "TimeIniziale",   "chkDataFinale",
                           "DataFinale",      "TimeFinale",     "chkAllarme",     "cmbAllarme",
                           "lvVRX",           "cmdSeleziona",   "cmdDeseleziona", "cmdAggiornaVRX",
                           "cmdAggiornaDati", "chkDataIniziale"};
    child<QWidget>(order[0])->setFocus();
    for (const char* name : order) {
        // A date or time has parts, through which Tab goes first.
        for (int i = 0; i < 3 && QApplication::focusWidget()->objectName() != name; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
    }
    refresh();
    child<QWidget>("cmdAggiornaDati")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "dg");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Primo record");
}

TEST_F(AlarmViewerFaceTest, TheMnemonicsWork) {
    start();
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(&viewer, key, Qt::AltModifier);
        QTest::qWait(150);  // the button shows itself pressed first
        settle();
    };
    press(Qt::Key_S);
    EXPECT_THAT(checkedStations(), ElementsAre("RTU01", "RTU02", "RTU03"));
    press(Qt::Key_D);
    EXPECT_THAT(checkedStations(), IsEmpty());
    services.fakeDatabase.log.clear();
    press(Qt::Key_A);
    EXPECT_THAT(services.fakeDatabase.log, Contains(testing::HasSubstr(AllAlarms)));
    services.fakeDatabase.log.clear();
    press(Qt::Key_R);
    EXPECT_THAT(services.fakeDatabase.log, Contains(testing::HasSubstr(StationListQuery)));
}

TEST_F(AlarmViewerFaceTest, EnterInAFilterDoesNothing) {
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* inner = new AlarmViewer(services, &dialog);
    auto* ok = new QPushButton("OK", &dialog);
    ok->setDefault(true);
    layout->addWidget(inner);
    layout->addWidget(ok);
    int presses = 0;
    for (QPushButton* each : dialog.findChildren<QPushButton*>())
        QObject::connect(each, &QPushButton::clicked, [&presses] { ++presses; });
    inner->File("allarmi.mdb");
    dialog.show();
    settle();
    services.fakeDatabase.log.clear();
    for (const char* name : {"chkDataIniziale", "DataIniziale", "TimeFinale", "cmbAllarme", "lvVRX",
                             "cmdAggiornaDati"}) {
        auto* input = inner->findChild<QWidget*>(name);
        input->setFocus();
        QTest::keyClick(input, Qt::Key_Return);
        QTest::keyClick(input, Qt::Key_Enter);
        settle();
        EXPECT_TRUE(dialog.isVisible()) << name;
    }
    EXPECT_EQ(presses, 0);
    EXPECT_THAT(services.fakeDatabase.log, IsEmpty());
}

TEST_F(AlarmViewerFaceTest, TheFiltersMakeTheQuery) {
    start();
    auto* combo = child<QComboBox>("cmbAllarme");
    EXPECT_EQ(combo->currentIndex(), -1);
    QTest::mouseClick(child<QCheckBox>("chkAllarme"), Qt::LeftButton);
    QTest::keyClick(combo, Qt::Key_End);
    auto* list = child<QTableView>("lvVRX");
    list->setCurrentIndex(list->model()->index(1, 0));
    QTest::keyClick(list, Qt::Key_Space);
    QTest::mouseClick(child<QCheckBox>("chkDataIniziale"), Qt::LeftButton, {}, QPoint(8, 8));
    auto* time = child<QDateTimeEdit>("TimeIniziale");
    time->setFocus();
    time->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(time, "0730");
    settle();
    services.fakeDatabase.log.clear();
    refresh();
    const std::int64_t start = Date::fromFields({2006, 3, 14, 7, 30, 0, 0}).milliseconds() / 1000;
    EXPECT_THAT(services.fakeDatabase.log,
                ElementsAre("SELECT Data, VRX, Allarme, Descrizione, Evento FROM Allarmi WHERE "
                            "(Data in " +
                            std::to_string(start) +
                            "..- AND Allarme is <Pompa ferma> AND ((VRX = 'RTU02'))) ORDER BY Data "
                            "| 3 3 1 -1"));
}

TEST_F(AlarmViewerFaceTest, TheResultTakesThePlaceOfTheHint) {
    start();
    auto* grid = child<QTableView>("dg");
    const auto hintIsVisible = [this] {
        for (const QLabel* label : viewer.findChildren<QLabel*>())
            if (label->isVisible() && label->text().contains("Aggiorna Dati")) return true;
        return false;
    };
    EXPECT_FALSE(grid->isVisible());
    EXPECT_TRUE(hintIsVisible());
    EXPECT_EQ(caption(), "");
    refresh();
    EXPECT_TRUE(grid->isVisible());
    EXPECT_FALSE(hintIsVisible());
    EXPECT_EQ(caption(), "Record 1 of 2");
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal), "Nome RTU");
    EXPECT_EQ(grid->model()->index(0, 0).data(), "14/03/2006 12.00.00");
    QTest::mouseClick(viewer.findChildren<QToolButton*>().at(3), Qt::LeftButton);
    settle();
    EXPECT_EQ(caption(), "Record 2 of 2");

    services.fakeDatabase.failures.emplace(AllAlarms, RuntimeError(3343, "rotto"));
    refresh();
    EXPECT_EQ(services.messages.shown.size(), 1U);
    EXPECT_EQ(caption(), "Record 2 of 2") << "grid and counter keep what they showed";
    EXPECT_EQ(grid->model()->rowCount(), 2);

    services.fakeDatabase.failures.clear();
    services.fakeDatabase.answers.erase(AllAlarms);
    refresh();
    EXPECT_EQ(caption(), "No Record ");
}

TEST_F(AlarmViewerFaceTest, KeepsWhatTheOperatorChose) {
    const auto& saved = services.settingsFactory.files["a.ini"]["AlarmViewer_AlarmViewer1"];
    start();
    refresh();
    QTest::mouseClick(button("cmdSeleziona"), Qt::LeftButton);
    settle();
    QHeaderView* header = child<QTableView>("dg")->horizontalHeader();
    const int border = header->sectionSize(0);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, QPoint(border - 1, 5));
    QTest::mouseMove(header->viewport(), QPoint(border + 19, 5));
    settle();
    EXPECT_FALSE(saved.contains("DGColumnWidth0")) << "not before the drag ends";
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, QPoint(border + 19, 5));
    settle();
    EXPECT_EQ(saved.at("DGColumnWidth0"), std::to_string((border + 20) * TwipsPerPixel));

    viewer.Terminate();
    EXPECT_EQ(saved.at("ListCount"), "3");
    EXPECT_EQ(saved.at("List2"), "1");
    AlarmViewer again(services);
    again.setObjectName("AlarmViewer1");
    again.File("allarmi.mdb");
    again.FileIni("a.ini");
    again.show();
    settle();
    const auto* list = again.findChild<QTableView*>("lvVRX");
    EXPECT_EQ(list->model()->index(1, 0).data(Qt::CheckStateRole), Qt::Checked);
}

TEST_F(AlarmViewerFaceTest, ComesOutOfAForm) {
    class Loader final : public QUiLoader {
    public:
        explicit Loader(Services& services) : services_(services) {}
        QWidget* createWidget(const QString& className, QWidget* parent,
                              const QString& name) override {
            if (className != "velt::ui::AlarmViewer")
                return QUiLoader::createWidget(className, parent, name);
            auto* made = new AlarmViewer(services_, parent);
            made->setObjectName(name);
            return made;
        }

    private:
        Services& services_;
    };
    QByteArray form = R"(<ui version="4.0"><class>Form</class>
      <widget class="QWidget" name="Form"><layout class="QVBoxLayout" name="l"><item>
       <widget class="velt::ui::AlarmViewer" name="Storico">
        <property name="BackColor" stdset="0"><color><red>1</red><green>2</green><blue>3</blue>
         </color></property>
        <property name="File" stdset="0"><string notr="true">allarmi.mdb</string></property>
        <property name="FileIni" stdset="0"><string notr="true">a.ini</string></property>
       </widget></item></layout></widget></ui>)";
    QBuffer buffer(&form);
    buffer.open(QIODevice::ReadOnly);
    Loader loader(services);
    const std::unique_ptr<QWidget> window(loader.load(&buffer));
    ASSERT_NE(window, nullptr) << loader.errorString().toStdString();
    auto* loaded = window->findChild<AlarmViewer*>("Storico");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->BackColor(), 0x00030201U);
    EXPECT_EQ(loaded->File(), "allarmi.mdb");
    EXPECT_THAT(services.fakeDatabase.log, IsEmpty());
    window->show();
    settle();
    EXPECT_EQ(loaded->findChild<QTableView*>("lvVRX")->model()->rowCount(), 3);
    EXPECT_EQ(loaded->palette().color(QPalette::Window), QColor(1, 2, 3));
    loaded->Terminate();
    EXPECT_TRUE(services.settingsFactory.files["a.ini"].contains("AlarmViewer_"))
        << "a FileIni of the form knows no instance";
}

TEST_F(AlarmViewerFaceTest, HasAMinimumSizeOnAnyForm) {
    QWidget form;
    auto* inner = new AlarmViewer(services, &form);
    inner->resize(10, 10);
    form.show();
    settle();
    EXPECT_GE(inner->width(), 600);
    EXPECT_GE(inner->height(), 300);
    EXPECT_LE(inner->height(), 400);
}

}  // namespace
}  // namespace velt::ui
