// SPDX-License-Identifier: MIT
#include "opcviewer/opcviewer.h"

namespace velt {
namespace {

constexpr int TimerInterval = 20;  // ms; long enough for the form to have been drawn

/// The server's own branch, which is no station.
constexpr const char* ServerBranch = "PC_Server";

}  // namespace

OPCViewer::OPCViewer(const OPCViewerForm& form, Ambient& ambient, Services& services)
    : Control({.name = "OPCViewer",
               .sourceProperty = "Hostname",
               .start = ControlTraits::Start::FirstShowOnly,
               .loadsSettings = false},
              ambient, services),
      form_(form) {
    form_.t.Interval(TimerInterval);

    form_.cmdVrxFromOPC.Click.subscribe([this] {
        ConnettiOPC();
        AggiornaElencoRTU();
    });
    form_.cmdAggiornaDati.Click.subscribe([this] {
        ConnettiOPC();
        AggiornaVariabili();
    });
    form_.cmdSeleziona.Click.subscribe([this] { ImpostaSelezioneRTU(true); });
    form_.cmdDeseleziona.Click.subscribe([this] { ImpostaSelezioneRTU(false); });
    form_.cmdEliminaTutto.Click.subscribe([this] { DisconnettiOPC(); });
    form_.lvVRX.ItemActivate.subscribe([this] {
        const int row = form_.lvVRX.SelectedItem();
        form_.lvVRX.Checked(row, !form_.lvVRX.Checked(row));
    });
    form_.lvItem.ColumnClick.subscribe([this](int column) { ordina(column); });
    form_.cmdScrivi.Click.subscribe([this] { ScriviValore(form_.txtScrittura.Text()); });
    form_.t.Tick.subscribe([this] {
        form_.t.Enabled(false);
        form_.lvVRX.AdjustColumns(200, 0);
    });
}

void OPCViewer::applyBackColor(OleColor color) {
    form_.control.BackColor(color);
    form_.frmVRX.BackColor(color);
    form_.frmItem.BackColor(color);
}

void OPCViewer::applyForeColor(OleColor color) {
    form_.control.ForeColor(color);
    form_.frmVRX.ForeColor(color);
    form_.frmItem.ForeColor(color);
}

void OPCViewer::start() {
    form_.t.Enabled(true);
    AggiornaElencoRTU();
}

void OPCViewer::AggiornaElencoRTU() {
    if (!ServerOPC_) ConnettiOPC();
    if (!ServerOPC_ || ServerOPC_->ServerState() != opc::Running) return;
    const std::unique_ptr<OPCBrowser> browser = ServerOPC_->CreateBrowser();
    browser->MoveToRoot();
    browser->ShowBranches();
    form_.lvVRX.Clear();
    for (std::int32_t i = 1; i <= browser->Count(); ++i) {
        const std::string name = browser->Item(i);
        // Two branches of one name are one station to the operator.
        if (name != ServerBranch && form_.lvVRX.RowOf(name) == 0) form_.lvVRX.Add(name, name);
    }
}

bool OPCViewer::RTUSelezionata(const std::string& rtu) const {
    const int row = form_.lvVRX.RowOf(rtu);
    return row != 0 && form_.lvVRX.Checked(row);
}

void OPCViewer::ImpostaSelezioneRTU(bool checked) {
    for (int row = 1; row <= form_.lvVRX.Count(); ++row) form_.lvVRX.Checked(row, checked);
}

void OPCViewer::ordina(int column) {
    using Order = ReportList::Order;
    if (column != form_.lvItem.SortKey())
        form_.lvItem.SortKey(column);
    else
        form_.lvItem.SortOrder(form_.lvItem.SortOrder() == Order::Ascending ? Order::Descending
                                                                            : Order::Ascending);
}

}  // namespace velt
