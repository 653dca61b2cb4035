// SPDX-License-Identifier: MIT
// What holds for the face of every control: its captions, its room, and its use without a mouse
// and without eyes.
#include "tests/qtmain.h"
#include "widgets/alarmviewer.h"
#include "widgets/connviewer.h"
#include "widgets/opcviewer.h"
#include "widgets/trendviewer.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <memory>

namespace velt::ui {
namespace {

template <typename Control>
ControlWidget* make(QWidget* parent) {
    auto* control = new Control(parent);
    // Shown empty: what is under test needs no data, and nothing may be read or connected.
    control->setDesignMode(true);
    return control;
}

struct Face {
    ControlWidget* (*make)(QWidget* parent);
    const char* tabs;      ///< where Tab goes
    QSize least, most;     ///< of its minimum size
    const char* captions;  ///< titles, texts, tool tips and formats
};

const Face faces[] = {
    {make<OPCViewer>,
     "lvVRX cmdVrxFromOPC cmdSeleziona cmdDeseleziona cmdAggiornaDati cmdEliminaTutto txtFiltro "
     "chkNonGood lvItem txtScrittura cmdScrivi ",
     {600, 280},
     {800, 420},
     "Elenco Item|&Filtro:|Mostra solo gli Item il cui nome contiene questo testo|Solo "
     "&qualità non Good|Nasconde gli Item con qualità \"Good\"|0 Item|Scrittura|Nessun Item "
     "selezionato|Immettere il valore da scrivere (\";\" separatore per array)|S&crivi|Esegue "
     "la scrittura dell'Item selezionato|Elenco RTU|Aggiorna Elenco &RTU|&Seleziona Tutti|"
     "&Deseleziona Tutti|&Aggiorna Variabili|&Elimina Tutto"},
    {make<AlarmViewer>,
     "chkDataIniziale DataIniziale TimeIniziale chkDataFinale DataFinale TimeFinale chkAllarme "
     "cmbAllarme lvVRX cmdSeleziona cmdDeseleziona cmdAggiornaVRX cmdAggiornaDati ",
     {600, 300},
     {800, 400},
     "Premere \"Aggiorna Dati\" per leggere gli allarmi.| Periodo |Data iniziale|01/01/2000|"
     "dd/MM/yyyy|00.00|HH.mm|Data finale| Allarme |Abilita condizione| Stazioni RTU |"
     "&Seleziona Tutti|&Deseleziona Tutti|      Aggiorna lista     &RTU e Allarmi|&Aggiorna "
     "Dati|Primo record|Record precedente|Record successivo|Ultimo record"},
    {make<TrendViewer>,
     "cmbVRX cmbRange DataIniziale TimeIniziale DataFinale TimeFinale cmdIndietro2 cmdIndietro "
     "cmdAvanti cmdAvanti2 cmdAggiornaDati chkAutoUpdate chkNormalizzato cmbScala colore1 "
     "cmbTrend0 colore2 cmbTrend1 colore3 cmbTrend2 colore4 cmbTrend3 chart ",
     {700, 400},
     {1000, 640},
     " Intervallo |S&tazione:|&Durata:|&Inizio:|01/01/2000|dd/MM/yyyy|00.00|HH.mm|&Fine:|<<|"
     "Indietro di mezzo intervallo|<|Indietro di un quarto dell'intervallo|>|Avanti di un "
     "quarto dell'intervallo|>>|Avanti di mezzo intervallo|&Aggiorna Dati|Aggiornamento "
     "automatico|Grafico normalizzato|Sca&la:| Penne |Clic: mostra o nasconde la penna. "
     "Doppio clic: sceglie il colore.|●|La penna è visibile"},
    {make<ConnViewer>,
     "lvVRX cmdConnetti cmdDisconnetti cmdDownload cmdDownloadAll ",
     {629, 274},
     {629, 274},
     "Nome Progetto:|Versione:|Hostname:|RTU:|Stato:|Log:|Stazioni RTU|Connetti|Disconnetti|"
     "Download|Download tutte le stazioni"}};

class FacesTest : public testing::Test {
protected:
    void SetUp() override {
        for (const Face& face : faces) controls.push_back(face.make(&window));
    }
    ~FacesTest() override { settle(); }

    QDialog window;
    std::vector<ControlWidget*> controls;
};

TEST_F(FacesTest, BearTheCaptionsThatOperatorsKnowInEveryLocale) {
    const auto captions = [](const QWidget& control) {
        QStringList texts;
        for (const QWidget* widget : control.findChildren<QWidget*>())
            for (const char* property : {"title", "text", "toolTip", "displayFormat"})
                if (!widget->objectName().startsWith("qt_"))
                    texts.append(widget->property(property).toString());
        texts.removeAll(QString());
        texts.removeDuplicates();
        return texts.join("|").toStdString();
    };
    const QLocale before;
    for (const auto language : {QLocale::Italian, QLocale::English}) {
        QLocale::setDefault(language);
        for (const Face& face : faces) EXPECT_EQ(captions(*face.make(&window)), face.captions);
    }
    QLocale::setDefault(before);
    const auto* lists = controls[1]->findChild<QWidget*>("cmdAggiornaVRX");
    EXPECT_GE(lists->sizeHint().height(), 2 * lists->fontMetrics().height()) << "two lines";
}

TEST_F(FacesTest, EveryInputHasAName) {
    for (const ControlWidget* control : controls) {
        for (QWidget* input : control->findChildren<QWidget*>()) {
            const bool isPart = input->objectName().startsWith("qt_") ||
                                (input->objectName().isEmpty() && !input->inherits("QToolButton"));
            if (isPart || !(input->focusPolicy() & Qt::TabFocus)) continue;
            SCOPED_TRACE(control->metaObject()->className() + input->objectName().toStdString());
            QAccessibleInterface* face = QAccessible::queryAccessibleInterface(input);
            ASSERT_NE(face, nullptr);
            EXPECT_NE(face->text(QAccessible::Name).trimmed(), "");
        }
    }
}

TEST_F(FacesTest, NoTwoInputsOfOneShareAMnemonic) {
    int count = 0;
    for (const ControlWidget* control : controls) {
        QStringList keys;
        for (const auto* button : control->findChildren<QAbstractButton*>())
            keys.append(QKeySequence::mnemonic(button->text()).toString());
        for (const auto* label : control->findChildren<QLabel*>())
            if (label->buddy()) keys.append(QKeySequence::mnemonic(label->text()).toString());
        keys.removeAll(QString());
        count += static_cast<int>(keys.size());
        EXPECT_EQ(keys.removeDuplicates(), 0) << control->metaObject()->className();
    }
    EXPECT_GT(count, 12);
}

TEST_F(FacesTest, TabGoesThroughTheInputsAndEnterPressesNothing) {
    auto* ok = new QPushButton("OK", &window);
    ok->setDefault(true);
    int presses = 0;
    for (const auto* each : window.findChildren<QPushButton*>())
        QObject::connect(each, &QPushButton::clicked, &window, [&presses] { ++presses; });
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const std::string expected = faces[i].tabs;
        const QString first = QString(faces[i].tabs).section(' ', 0, 0);
        controls[i]->findChild<QWidget*>(first)->setFocus();
        std::string reached;
        for (int step = 0; step < 40 && reached != expected; ++step) {
            QWidget* focus = QApplication::focusWidget();
            // A date has parts, through which Tab goes first.
            const std::string name = focus->objectName().toStdString() + " ";
            if (!reached.ends_with(" " + name) && reached != name) reached += name;
            const bool usesEnter = name == "txtScrittura " || name.starts_with("colore");
            if (!usesEnter) QTest::keyClick(focus, Qt::Key_Return);
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        EXPECT_EQ(reached, expected);
    }
    EXPECT_EQ(presses, 0);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FacesTest, HaveAMinimumSizeOnAnyFormAndRoomForALargerFont) {
    window.show();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        controls[i]->resize(10, 10);
        settle();
        const QSize size = controls[i]->size();
        EXPECT_EQ(size.expandedTo(faces[i].least).boundedTo(faces[i].most), size)
            << i << ": " << size.width() << " x " << size.height();
    }
    QFont large = window.font();
    large.setPointSize(18);
    window.setFont(large);
    settle();
    const auto texts = controls[3]->findChildren<QWidget*>(QRegularExpression("^(cmd|lblTit)"));
    for (const QWidget* widget : texts) {
        const QString text = widget->property("text").toString();
        EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(text))
            << text.toStdString();
        EXPECT_GE(widget->height(), widget->fontMetrics().height());
    }
}

}  // namespace
}  // namespace velt::ui
