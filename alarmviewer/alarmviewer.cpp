// SPDX-License-Identifier: MIT
#include "alarmviewer/alarmviewer.h"

#include "alarmviewer/intervallo.h"
#include "platform/conversions.h"
#include "platform/runtimeerror.h"

#include <algorithm>

namespace velt {
namespace {

constexpr const char* MissingFile = "Il File Allarmi non esiste!";
constexpr int TimerInterval = 50;  // ms; long enough for the form to have been laid out

std::string rightTrimmed(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

void copyTimeOfDay(const DatePicker& time, DatePicker& target) {
    const Date::Fields clock = time.Value().fields();
    target.Value(target.Value().withTime(clock.hour, clock.minute));
}

}  // namespace

AlarmViewer::AlarmViewer(const AlarmViewerForm& form, Ambient& ambient, Services& services)
    : Control({.name = "AlarmViewer",
               .sourceProperty = "File",
               .start = ControlTraits::Start::FirstRunShow,
               .loadsSettings = true},
              ambient, services),
      form_(form) {
    form_.t.Interval(TimerInterval);

    form_.TimeIniziale.Change.subscribe(
        [this] { copyTimeOfDay(form_.TimeIniziale, form_.DataIniziale); });
    form_.TimeFinale.Change.subscribe(
        [this] { copyTimeOfDay(form_.TimeFinale, form_.DataFinale); });
    form_.lvVRX.DblClick.subscribe([this] {
        // A double click beside the rows selects nothing: skipped.
        ignoreErrors([this] {
            const int row = form_.lvVRX.SelectedItem();
            form_.lvVRX.Checked(row, !form_.lvVRX.Checked(row));
        });
    });
    form_.cmdSeleziona.Click.subscribe([this] { impostaSelezione(true); });
    form_.cmdDeseleziona.Click.subscribe([this] { impostaSelezione(false); });
    form_.cmdAggiornaVRX.Click.subscribe([this] { AggiornaListe(); });
    form_.cmdAggiornaDati.Click.subscribe([this] { AggiornaDati(); });
    form_.dg.ColResize.subscribe([this](int column) { salvaLarghezza(column); });
    form_.Adodc.MoveComplete.subscribe([this] { mostraPosizione(); });
    form_.t.Tick.subscribe([this] {
        form_.t.Enabled(false);
        form_.lvVRX.AdjustColumns(150, 0);
    });
}

void AlarmViewer::applyBackColor(OleColor color) {
    form_.control.BackColor(color);
    form_.frmAllarme.BackColor(color);
}

void AlarmViewer::applyForeColor(OleColor color) {
    form_.control.ForeColor(color);
    form_.frmAllarme.ForeColor(color);
}

void AlarmViewer::start() {
    AggiornaListe();
    CaricaImpostazioni();
    form_.dg.AllowRowSizing(false);
    form_.dg.Locked(true);
    form_.dg.FontSize(8);
    form_.dg.HeadFont(8, true);
    form_.t.Enabled(true);
}

void AlarmViewer::release() {
    SalvaImpostazioni();
    form_.t.Enabled(false);
    form_.lvVRX.Clear();
    form_.cmbAllarme.Clear();
    listsFilled_ = false;
    form_.Adodc.Recordset(nullptr);
    mostraPosizione();
    services().recordsets().Close(recordset_);
    recordset_.reset();
    connection_.reset();
}

void AlarmViewer::showingErrors(const std::function<void()>& refresh) {
    try {
        refresh();
    } catch (const RuntimeError& error) {
        // Who has cancelled a refresh need not be told that it was cancelled.
        if (error.is(ErrorNumber::Cancelled)) return;
        services().messageBox().Show("Error N°: " + std::to_string(error.Number()) + "\r\n" +
                                         "Desc.: " + error.Description(),
                                     MessageBox::Exclamation, "Error");
    }
}

bool AlarmViewer::connect() {
    if (!connection_) {
        if (!services().fileSystem().FileExists(File())) {
            services().messageBox().Show(MissingFile, MessageBox::Exclamation, "Errore");
            return false;
        }
        connection_ = services().database().GetConnection(File(), "", "", 60, 3, 3);
    }
    if (connection_->State() == ado::StateClosed) connection_->Open();
    return true;
}

std::vector<std::string> AlarmViewer::readList(const std::string& query) {
    const std::shared_ptr<Recordset> recordset = services().database().CreateRecordset();
    recordset->CursorLocation(ado::UseClient);
    recordset->Open(query, connection_, ado::OpenStatic, ado::LockReadOnly,
                    ado::OptionsUnspecified);
    std::vector<std::string> texts;
    const std::int32_t count = recordset->RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        std::string text =
            rightTrimmed(conversions::text(recordset->Field(0), services().locale()));
        // A row without a name gives the operator nothing to choose.
        if (!text.empty()) texts.push_back(std::move(text));
        recordset->MoveNext();
    }
    services().recordsets().Close(recordset);
    return texts;
}

void AlarmViewer::AggiornaListe() {
    showingErrors([this] {
        if (File().empty()) {
            form_.lvVRX.Clear();
            listsFilled_ = false;
            return;
        }
        if (!connect()) return;
        listsFilled_ = false;
        form_.lvVRX.Clear();
        form_.cmbAllarme.Clear();
        for (const std::string& station : readList(StationListQuery)) form_.lvVRX.Add("", station);
        for (const std::string& alarm : readList(AlarmListQuery)) form_.cmbAllarme.AddItem(alarm);
        listsFilled_ = true;
        services().dispatcher().yield();
        form_.lvVRX.AdjustColumns(160, 0);
    });
}

AlarmFilter AlarmViewer::filter() const {
    return {.startEnabled = form_.chkDataIniziale.Value() == 1,
            .start = form_.DataIniziale.Value(),
            .endEnabled = form_.chkDataFinale.Value() == 1,
            .end = form_.DataFinale.Value(),
            .alarmEnabled = form_.chkAllarme.Value() == 1,
            .alarm = form_.cmbAllarme.Text(),
            .stations = checkedTexts(form_.lvVRX)};
}

void AlarmViewer::AggiornaDati() {
    showingErrors([this] {
        if (!connect()) return;
        if (recordset_) {
            services().recordsets().Close(recordset_);
        } else {
            recordset_ = services().database().CreateRecordset();
            recordset_->CursorLocation(ado::UseClient);
        }
        recordset_->Open(ComponiSQL(filter(), services().database()), connection_, ado::OpenStatic,
                         ado::LockReadOnly, ado::OptionsUnspecified);
        if (!form_.Adodc.Recordset()) form_.Adodc.Recordset(recordset_);
        form_.dg.Visible(true);
        form_.dg.ReBind();
        for (int column = 0; column < form_.dg.ColumnCount(); ++column) {
            std::string caption = form_.dg.ColumnCaption(column);
            std::ranges::replace(caption, '_', ' ');
            form_.dg.ColumnCaption(column, caption);
        }
        CaricaLarghezze();
    });
}

void AlarmViewer::mostraPosizione() {
    const std::int32_t count = form_.Adodc.RecordCount();
    form_.Adodc.Caption(count == 0 ? "No Record "
                                   : "Record " + std::to_string(form_.Adodc.AbsolutePosition()) +
                                         " of " + std::to_string(count));
}

void AlarmViewer::impostaSelezione(bool checked) {
    for (int row = 1; row <= form_.lvVRX.Count(); ++row) form_.lvVRX.Checked(row, checked);
}

}  // namespace velt
