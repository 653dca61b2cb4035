// SPDX-License-Identifier: MIT
#pragma once

#include "framework/control.h"
#include "opcviewer/itemhandles.h"
#include "platform/opc.h"
#include "platform/widgets.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velt {

/// The sub-items of a row of the item table.
enum ColonneListView { cVALORE_OPC = 1, cQUALITA = 2, cTIMESTAMP = 3 };

/// The widgets of an OPC viewer.
struct OPCViewerForm {
    Frame& control;  ///< the control's own surface
    Frame& frmVRX;
    Frame& frmItem;
    ListView& lvVRX;
    Button& cmdVrxFromOPC;
    Button& cmdAggiornaDati;
    Button& cmdSeleziona;
    Button& cmdDeseleziona;
    Button& cmdEliminaTutto;
    ReportList& lvItem;
    TextBox& txtScrittura;
    Button& cmdScrivi;
    Timer& t;
};

/// Lists the stations of an OPC server, shows the variables of the ticked ones live (value,
/// quality, time stamp) and writes values into them. The form must outlive it.
class VELT_API OPCViewer final : public Control {
public:
    OPCViewer(const OPCViewerForm& form, Ambient& ambient, Services& services);

    /// The node on which the server runs; "" is the local machine. A change rebuilds the station
    /// list, but from the server that is connected, if there is one: the new node counts from the
    /// next connection on.
    [[nodiscard]] const std::string& Hostname() const { return source(); }
    void Hostname(const std::string& node) { source(node); }

    /// The server has shut down or is lost, for the reason given, and the control has let go of it.
    Event<const std::string&> ConnectionLost;

private:
    void applyBackColor(OleColor color) override;
    void applyForeColor(OleColor color) override;
    void start() override;
    void sourceAssigned() override { AggiornaElencoRTU(); }
    void release() override { DisconnettiOPC(); }

    void ConnettiOPC();
    void DisconnettiOPC();
    /// Empties the group and lets go of it.
    void eliminaGruppo();

    void AggiornaElencoRTU();
    void AggiornaVariabili();
    void AggiungiVariabiliRTU(const std::string& rtu);
    /// The item IDs of a station's variables.
    [[nodiscard]] std::vector<std::string> itemIDs(const std::string& rtu) const;
    [[nodiscard]] bool RTUSelezionata(const std::string& rtu) const;
    /// Removes the items and their rows. Without items the table stays as it is.
    void SvuotaVariabili();
    void ImpostaSelezioneRTU(bool checked);

    void mostraDati(const DataChangeArgs& args);
    void ordina(int column);
    void ScriviValore(const std::string& text);
    void ScriviItem(OPCItem& item, const std::vector<std::string>& parts);

    /// These raise RuntimeError 91 when there is none.
    [[nodiscard]] OPCServer& server() const;
    [[nodiscard]] OPCGroup& group() const;

    OPCViewerForm form_;
    std::shared_ptr<OPCServer> ServerOPC_;
    std::shared_ptr<OPCGroup> GruppoOPC_;
    ItemHandles handles_;
};

}  // namespace velt
