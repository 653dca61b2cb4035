// SPDX-License-Identifier: MIT
#include "widgets/opcviewer.h"

#include "adapters/qt/qtbutton.h"
#include "adapters/qt/qtframe.h"
#include "adapters/qt/qtlistview.h"
#include "adapters/qt/qtreportlist.h"
#include "adapters/qt/qttextbox.h"
#include "adapters/qt/qttimer.h"
#include "adapters/qt/stateicon.h"
#include "opcviewer/opcviewer.h"
#include "platform/conversions.h"
#include "widgets/internal/livecontrol.h"
#include "widgets/internal/opcviewerui.h"

#include <utility>

namespace velt::ui {
namespace {

qt::ReportLayout itemTable() {
    const auto picture = [](const char* name, const char* meaning, bool abnormal,
                            const char* emptyState) {
        return std::pair<const std::string, qt::ReportPicture>(
            name, {qt::stateIcon(QLatin1String(name)), QString::fromUtf8(meaning), abnormal,
                   QString::fromUtf8(emptyState)});
    };
    return {
        .captions = {QStringLiteral("Item"), QStringLiteral("Valore OPC"),
                     QStringLiteral("Qualità"), QStringLiteral("Time Stamp Server")},
        .stateColumn = cQUALITA,
        .normalState = "Good",
        .pictures = {
            picture("verde", "", false, "(in attesa di dati)"), picture("gialla", "", false, ""),
            picture("rossa", "", true, ""), picture("errore_verde", "", true, ""),
            picture("errore_gialla", "Item rifiutato dal server", true, "(Item rifiutato)")}};
}

/// The logic with its widgets' adapters.
class LiveOPCViewer final : public LiveControl {
public:
    LiveOPCViewer(ControlWidget& widget, const OPCViewerUi& ui, Services& services)
        : LiveControl(widget),
          control_(ui.control),
          frmVRX_(ui.frmVRX),
          frmItem_(ui.frmItem),
          lvVRX_(*this, ui.lvVRX),
          cmdVrxFromOPC_(*this, ui.cmdVrxFromOPC),
          cmdAggiornaDati_(*this, ui.cmdAggiornaDati),
          cmdSeleziona_(*this, ui.cmdSeleziona),
          cmdDeseleziona_(*this, ui.cmdDeseleziona),
          cmdEliminaTutto_(*this, ui.cmdEliminaTutto),
          lvItem_(*this, ui.lvItem, itemTable(), services.locale()),
          txtScrittura_(ui.txtScrittura),
          cmdScrivi_(*this, ui.cmdScrivi),
          t_(*this),
          logic_(OPCViewerForm{control_, frmVRX_, frmItem_, lvVRX_, cmdVrxFromOPC_,
                               cmdAggiornaDati_, cmdSeleziona_, cmdDeseleziona_, cmdEliminaTutto_,
                               lvItem_, txtScrittura_, cmdScrivi_, t_},
                 *this, services) {
        lvItem_.Shown.subscribe([this, &ui] {
            if (!isClosed()) ui.showItems(lvItem_.Count(), lvItem_.shownCount());
        });
        logic_.ConnectionLost.subscribe([this, &ui, &services](const std::string& reason) {
            if (isClosed()) return;
            const auto time = conversions::text(services.clock().now(), services.locale());
            ui.showLoss(QString::fromStdString(time), QString::fromStdString(reason));
        });
        ui.onFilter(&lvItem_, [this](const QString& text, bool onlyAbnormal) {
            lvItem_.filter(text, onlyAbnormal);
        });
        ui.fitColumns();
    }

    Control& logic() override { return logic_; }
    void assignSource(const std::string& value) override { logic_.Hostname(value); }

private:
    qt::QtFrame control_;
    qt::QtFrame frmVRX_;
    qt::QtFrame frmItem_;
    qt::QtListView lvVRX_;
    qt::QtButton cmdVrxFromOPC_;
    qt::QtButton cmdAggiornaDati_;
    qt::QtButton cmdSeleziona_;
    qt::QtButton cmdDeseleziona_;
    qt::QtButton cmdEliminaTutto_;
    qt::QtReportList lvItem_;
    qt::QtTextBox txtScrittura_;
    qt::QtButton cmdScrivi_;
    qt::QtTimer t_;
    velt::OPCViewer logic_;
};

}  // namespace

OPCViewer::OPCViewer(QWidget* parent) : OPCViewer(nullptr, parent) {}

OPCViewer::OPCViewer(Services& services, QWidget* parent) : OPCViewer(&services, parent) {}

OPCViewer::OPCViewer(Services* services, QWidget* parent)
    : ControlWidget("Hostname", services, parent), ui_(std::make_unique<OPCViewerUi>(this)) {}

OPCViewer::~OPCViewer() = default;

std::shared_ptr<LiveControl> OPCViewer::makeLogic(Services& services) {
    return std::make_shared<LiveOPCViewer>(*this, *ui_, services);
}

}  // namespace velt::ui
