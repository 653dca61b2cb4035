// SPDX-License-Identifier: MIT
#pragma once

#include "alarmviewer/querybuilder.h"
#include "framework/control.h"
#include "platform/widgets.h"

#include <functional>
#include <memory>
#include <string>

namespace velt {

/// The widgets of an alarm viewer.
struct AlarmViewerForm {
    Frame& control;  ///< the control's own surface
    Frame& frmAllarme;
    CheckBox& chkDataIniziale;
    DatePicker& DataIniziale;
    DatePicker& TimeIniziale;
    CheckBox& chkDataFinale;
    DatePicker& DataFinale;
    DatePicker& TimeFinale;
    CheckBox& chkAllarme;
    ComboBox& cmbAllarme;
    ListView& lvVRX;
    Button& cmdSeleziona;
    Button& cmdDeseleziona;
    Button& cmdAggiornaVRX;
    Button& cmdAggiornaDati;
    DataGrid& dg;
    DataControl& Adodc;
    Timer& t;
};

/// Browses the alarm history in the table Allarmi of an Access file: filters by date, alarm and
/// stations, a read-only grid with a record counter, settings that outlive the program. The form
/// must outlive it.
class VELT_API AlarmViewer final : public Control {
public:
    AlarmViewer(const AlarmViewerForm& form, Ambient& ambient, Services& services);

    /// Path of the Access file. A change counts from the next connection on: an open one is kept
    /// until Terminate().
    [[nodiscard]] const std::string& File() const { return source(); }
    void File(const std::string& path) { source(path); }

private:
    void applyBackColor(OleColor color) override;
    void applyForeColor(OleColor color) override;
    void start() override;
    void loadSettings() override { CaricaImpostazioni(); }
    void release() override;

    void AggiornaListe();
    void AggiornaDati();
    void SalvaImpostazioni();
    void CaricaImpostazioni();
    void CaricaLarghezze();
    void salvaLarghezza(int column);
    void impostaSelezione(bool checked);
    void mostraPosizione();

    /// Makes sure that the connection is open; false when the file does not exist, which the
    /// operator has then been told.
    bool connect();
    /// The right-trimmed texts of the first field of a list query, empty ones left out.
    std::vector<std::string> readList(const std::string& query);
    [[nodiscard]] AlarmFilter filter() const;
    /// Runs a refresh; a run-time error in it is shown to the operator and ends it.
    void showingErrors(const std::function<void()>& refresh);

    AlarmViewerForm form_;
    std::shared_ptr<Connection> connection_;
    std::shared_ptr<Recordset> recordset_;
    bool listsFilled_ = false;     ///< the lists show what the file holds
    bool settingsLoaded_ = false;  ///< there is something to save
};

}  // namespace velt
