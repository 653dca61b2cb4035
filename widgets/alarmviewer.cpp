// SPDX-License-Identifier: MIT
#include "widgets/alarmviewer.h"

#include "adapters/qt/qtbutton.h"
#include "adapters/qt/qtcheckbox.h"
#include "adapters/qt/qtcombobox.h"
#include "adapters/qt/qtdatacontrol.h"
#include "adapters/qt/qtdatagrid.h"
#include "adapters/qt/qtdatepicker.h"
#include "adapters/qt/qtframe.h"
#include "adapters/qt/qtlistview.h"
#include "adapters/qt/qttimer.h"
#include "alarmviewer/alarmviewer.h"
#include "widgets/internal/alarmviewerui.h"
#include "widgets/internal/livecontrol.h"

namespace velt::ui {
namespace {

/// The logic with its widgets' adapters.
class LiveAlarmViewer final : public LiveControl {
public:
    LiveAlarmViewer(ControlWidget& widget, const AlarmViewerUi& ui, Services& services)
        : LiveControl(widget),
          control_(ui.control),
          frmAllarme_(ui.frmAllarme),
          chkDataIniziale_(*this, ui.chkDataIniziale),
          DataIniziale_(*this, ui.DataIniziale),
          TimeIniziale_(*this, ui.TimeIniziale),
          chkDataFinale_(*this, ui.chkDataFinale),
          DataFinale_(*this, ui.DataFinale),
          TimeFinale_(*this, ui.TimeFinale),
          chkAllarme_(*this, ui.chkAllarme),
          cmbAllarme_(*this, ui.cmbAllarme),
          lvVRX_(*this, ui.lvVRX),
          cmdSeleziona_(*this, ui.cmdSeleziona),
          cmdDeseleziona_(*this, ui.cmdDeseleziona),
          cmdAggiornaVRX_(*this, ui.cmdAggiornaVRX),
          cmdAggiornaDati_(*this, ui.cmdAggiornaDati),
          Adodc_(*this, ui.Adodc),
          dg_(*this, ui.dg, Adodc_, services.dispatcher(), services.locale()),
          t_(*this),
          logic_(AlarmViewerForm{control_, frmAllarme_, chkDataIniziale_, DataIniziale_,
                                 TimeIniziale_, chkDataFinale_, DataFinale_, TimeFinale_,
                                 chkAllarme_, cmbAllarme_, lvVRX_, cmdSeleziona_, cmdDeseleziona_,
                                 cmdAggiornaVRX_, cmdAggiornaDati_, dg_, Adodc_, t_},
                 *this, services) {
        const Date::Fields present = services.clock().now().fields();
        const Date now = services.clock().now().withTime(present.hour, present.minute);
        DataIniziale_.Value(now);
        TimeIniziale_.Value(now);
        DataFinale_.Value(now);
        TimeFinale_.Value(now);
    }

    Control& logic() override { return logic_; }
    void assignSource(const std::string& value) override { logic_.File(value); }

private:
    qt::QtFrame control_;
    qt::QtFrame frmAllarme_;
    qt::QtCheckBox chkDataIniziale_;
    qt::QtDatePicker DataIniziale_;
    qt::QtDatePicker TimeIniziale_;
    qt::QtCheckBox chkDataFinale_;
    qt::QtDatePicker DataFinale_;
    qt::QtDatePicker TimeFinale_;
    qt::QtCheckBox chkAllarme_;
    qt::QtComboBox cmbAllarme_;
    qt::QtListView lvVRX_;
    qt::QtButton cmdSeleziona_;
    qt::QtButton cmdDeseleziona_;
    qt::QtButton cmdAggiornaVRX_;
    qt::QtButton cmdAggiornaDati_;
    qt::QtDataControl Adodc_;
    qt::QtDataGrid dg_;
    qt::QtTimer t_;
    velt::AlarmViewer logic_;
};

}  // namespace

AlarmViewer::AlarmViewer(QWidget* parent) : AlarmViewer(nullptr, parent) {}

AlarmViewer::AlarmViewer(Services& services, QWidget* parent) : AlarmViewer(&services, parent) {}

AlarmViewer::AlarmViewer(Services* services, QWidget* parent)
    : ControlWidget("File", services, parent), ui_(std::make_unique<AlarmViewerUi>(this)) {}

AlarmViewer::~AlarmViewer() = default;

std::shared_ptr<LiveControl> AlarmViewer::makeLogic(Services& services) {
    return std::make_shared<LiveAlarmViewer>(*this, *ui_, services);
}

}  // namespace velt::ui
