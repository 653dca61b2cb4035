// SPDX-License-Identifier: MIT
#include "widgets/trendviewer.h"

#include "adapters/qt/dates.h"
#include "adapters/qt/qtbutton.h"
#include "adapters/qt/qtcheckbox.h"
#include "adapters/qt/qtcolordialog.h"
#include "adapters/qt/qtcolorlabel.h"
#include "adapters/qt/qtcombobox.h"
#include "adapters/qt/qtdatepicker.h"
#include "adapters/qt/qtframe.h"
#include "adapters/qt/qtlabel.h"
#include "adapters/qt/qtmarker.h"
#include "adapters/qt/qtpointer.h"
#include "adapters/qt/qttimer.h"
#include "adapters/qt/text.h"
#include "connviewer/rtuconfig.h"
#include "trendviewer/trendviewer.h"
#include "widgets/chart/qtchart.h"
#include "widgets/internal/livecontrol.h"
#include "widgets/internal/trendviewerui.h"

namespace velt::ui {
namespace {

/// The adapters of one pen's widgets.
struct LivePen {
    LivePen(qt::GatedControl& control, const TrendPenUi& ui)
        : cmbTrend(control, ui.cmbTrend),
          lblDesc(ui.lblDesc),
          lblUdm(ui.lblUdm),
          colore(control, ui.colore),
          marker(ui.marker) {}
    TrendPenForm form() { return {cmbTrend, lblDesc, lblUdm, colore, marker}; }

    qt::QtComboBox cmbTrend;
    qt::QtLabel lblDesc;
    qt::QtLabel lblUdm;
    qt::QtColorLabel colore;
    qt::QtMarker marker;
};

/// The logic with its widgets' adapters.
class LiveTrendViewer final : public LiveControl {
public:
    LiveTrendViewer(ControlWidget& widget, const TrendViewerUi& ui, Services& services)
        : LiveControl(widget),
          control_(ui.control),
          frmIntervallo_(ui.frmIntervallo),
          frmPenne_(ui.frmPenne),
          cmbVRX_(*this, ui.cmbVRX),
          cmbRange_(*this, ui.cmbRange),
          DataIniziale_(*this, ui.DataIniziale),
          TimeIniziale_(*this, ui.TimeIniziale),
          DataFinale_(*this, ui.DataFinale),
          TimeFinale_(*this, ui.TimeFinale),
          cmdIndietro2_(*this, ui.cmdIndietro2),
          cmdIndietro_(*this, ui.cmdIndietro),
          cmdAvanti_(*this, ui.cmdAvanti),
          cmdAvanti2_(*this, ui.cmdAvanti2),
          cmdAggiornaDati_(*this, ui.cmdAggiornaDati),
          chkAutoUpdate_(*this, ui.chkAutoUpdate),
          chkNormalizzato_(*this, ui.chkNormalizzato),
          cmbScala_(*this, ui.cmbScala),
          penne_{LivePen(*this, ui.penne[0]), LivePen(*this, ui.penne[1]),
                 LivePen(*this, ui.penne[2]), LivePen(*this, ui.penne[3])},
          pointer_(ui.control),
          chart_(ui.chart),
          t_(*this),
          tmr_(*this),
          logic_(form(), *this, services) {
        ui.chart->setLocaleOfTexts(services.locale());
        const Date now = services.clock().now();
        for (DatePicker* picker : {&DataIniziale_, &TimeIniziale_, &DataFinale_, &TimeFinale_})
            picker->Value(now);
    }

    Control& logic() override { return logic_; }
    void assignSource(const std::string& value) override { logic_.File(value); }
    velt::TrendViewer& trends() { return logic_; }

private:
    TrendViewerForm form() {
        return {control_,
                frmIntervallo_,
                frmPenne_,
                cmbVRX_,
                cmbRange_,
                DataIniziale_,
                TimeIniziale_,
                DataFinale_,
                TimeFinale_,
                cmdIndietro2_,
                cmdIndietro_,
                cmdAvanti_,
                cmdAvanti2_,
                cmdAggiornaDati_,
                chkAutoUpdate_,
                chkNormalizzato_,
                cmbScala_,
                {penne_[0].form(), penne_[1].form(), penne_[2].form(), penne_[3].form()},
                dlgChart_,
                pointer_,
                chart_,
                t_,
                tmr_};
    }

    qt::QtFrame control_;
    qt::QtFrame frmIntervallo_;
    qt::QtFrame frmPenne_;
    qt::QtComboBox cmbVRX_;
    qt::QtComboBox cmbRange_;
    qt::QtDatePicker DataIniziale_;
    qt::QtDatePicker TimeIniziale_;
    qt::QtDatePicker DataFinale_;
    qt::QtDatePicker TimeFinale_;
    qt::QtButton cmdIndietro2_;
    qt::QtButton cmdIndietro_;
    qt::QtButton cmdAvanti_;
    qt::QtButton cmdAvanti2_;
    qt::QtButton cmdAggiornaDati_;
    qt::QtCheckBox chkAutoUpdate_;
    qt::QtCheckBox chkNormalizzato_;
    qt::QtComboBox cmbScala_;
    std::array<LivePen, ChartSeriesCount> penne_;
    qt::QtColorDialog dlgChart_;
    qt::QtPointer pointer_;
    QtChart chart_;
    qt::QtTimer t_;
    qt::QtTimer tmr_;
    velt::TrendViewer logic_;
};

}  // namespace

TrendViewer::TrendViewer(QWidget* parent) : TrendViewer(nullptr, parent) {}

TrendViewer::TrendViewer(Services& services, QWidget* parent) : TrendViewer(&services, parent) {}

TrendViewer::TrendViewer(Services* services, QWidget* parent)
    : ControlWidget("File", services, parent), ui_(std::make_unique<TrendViewerUi>(this)) {}

TrendViewer::~TrendViewer() = default;

QString TrendViewer::CartellaDownload() const {
    return qt::toQt(velt::CartellaDownload(qt::fromQt(File())));
}

void TrendViewer::SetTrend(const QString& vrx, const QString& trend1, const QString& trend2,
                           const QString& trend3, const QString& trend4, const Date& DataIniziale,
                           qint16 Intervallo) {
    callLogic([station = qt::fromQt(vrx), t1 = qt::fromQt(trend1), t2 = qt::fromQt(trend2),
               t3 = qt::fromQt(trend3), t4 = qt::fromQt(trend4), DataIniziale,
               Intervallo](LiveControl& live) {
        static_cast<LiveTrendViewer&>(live).trends().SetTrend(station, t1, t2, t3, t4, DataIniziale,
                                                              Intervallo);
    });
}

void TrendViewer::SetTrend(const QString& vrx, const QString& trend1, const QString& trend2,
                           const QString& trend3, const QString& trend4,
                           const QDateTime& DataIniziale, qint16 Intervallo) {
    const QDateTime civil(DataIniziale.date(), DataIniziale.time(), Qt::UTC);
    SetTrend(vrx, trend1, trend2, trend3, trend4, qt::fromQt(civil), Intervallo);
}

std::shared_ptr<LiveControl> TrendViewer::makeLogic(Services& services) {
    return std::make_shared<LiveTrendViewer>(*this, *ui_, services);
}

}  // namespace velt::ui
