// SPDX-License-Identifier: MIT
#pragma once

#include "platform/isodate.h"
#include "tests/fakes/fakechart.h"
#include "tests/fakes/fakeservices.h"
#include "tests/fakes/fakewidgets.h"
#include "trendviewer/loading.h"
#include "trendviewer/trendviewer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace velt {

/// Rows of (Data, Valore), the times in seconds from `start`.
inline std::shared_ptr<const RowSet> trendRows(
    const Date& start, const std::vector<std::pair<double, Variant>>& samples) {
    std::vector<std::vector<Variant>> rows;
    rows.reserve(samples.size());
    for (const auto& [seconds, value] : samples) rows.push_back({start.addSeconds(seconds), value});
    return std::make_shared<fakes::FakeRowSet>(std::vector<std::string>{"Data", "Valore"},
                                               std::move(rows));
}

/// A trend viewer on fakes. The plant has the stations RTU01, RTU02 (without a database) and
/// RTU03; section VRX0 has three trends, VRX1 one.
class TrendViewerFixture : public testing::Test {
protected:
    TrendViewerFixture() {
        ambient.displayName = "TrendViewer1";
        config("Common") = {
            {"NumeroVRX", "4"}, {"VRX0", "RTU01"}, {"VRX1", "RTU02"}, {"VRX3", "RTU03"}};
        config("VRX0") = {{"G0V0", "Livello"},    {"G0V0_Desc", "Livello vasca"}, {"G0V0_UdM", "m"},
                          {"G2V19", "Portata"},   {"G2V19_UdM", "l/s"},           {"G3V0", "Pompa"},
                          {"G3V0_Desc", "Marcia"}};
        config("VRX1") = {{"G1V3", "Pressione"}};
        services.files.files = {"D:\\Dati\\RTU01.MDB", "D:\\Dati\\RTU03.MDB"};
    }

    /// As a host does it at run time.
    void startWith(const std::string& fileIni = "") {
        viewer.File(Config);
        viewer.FileIni(fileIni);
        viewer.Show();
    }
    void setStart(const Date& date) {
        TimeIniziale.Value(date);
        DataIniziale.edit(date);
    }
    /// Of the first pen over the hour from `start`.
    std::string query(const std::string& table) {
        return CreaQuery(database(), table, start, start.addSeconds(3600));
    }
    /// Presses the button; what is told then.
    std::string refresh() {
        services.messages.shown.clear();
        cmdAggiornaDati.click();
        std::string told;
        for (const auto& [text, style, title] : services.messages.shown)
            told.append(title).append(std::to_string(style)).append(text);
        return told;
    }
    fakes::FakeDatabase& database() { return services.fakeDatabase; }
    fakes::FakeSettingsFactory::Keys& config(const std::string& section) {
        return services.settingsFactory.files[Config][section];
    }
    /// The keys that stand in this instance's section of "a.ini".
    fakes::FakeSettingsFactory::Keys& saved() {
        return services.settingsFactory.files["a.ini"]["TrendViewer_TrendViewer1"];
    }
    static std::vector<std::string> entries(const ComboBox& list) {
        std::vector<std::string> texts(static_cast<std::size_t>(list.ListCount()));
        for (int i = 0; i < list.ListCount(); ++i) texts[std::size_t(i)] = list.List(i);
        return texts;
    }
    /// Of the range list, the station list and the trend lists.
    std::string positions() const {
        std::string all =
            std::to_string(cmbRange.ListIndex()) + " " + std::to_string(cmbVRX.ListIndex());
        for (const Pen& pen : penne) all += " " + std::to_string(pen.cmbTrend.ListIndex());
        return all;
    }
    /// What both pairs of pickers show, without the year.
    std::string window() const {
        EXPECT_EQ(DataIniziale.Value(), TimeIniziale.Value());
        EXPECT_EQ(DataFinale.Value(), TimeFinale.Value());
        return isoText(DataIniziale.Value()).substr(5) + " - " +
               isoText(DataFinale.Value()).substr(5);
    }

    static constexpr const char* Config = "D:\\Dati\\VeltRTU.ini";
    const Date start = Date::fromFields({2006, 3, 14, 10, 0, 0, 0});

    struct Pen {
        fakes::FakeComboBox cmbTrend;
        fakes::FakeLabel lblDesc, lblUdm;
        fakes::FakeColorLabel colore;
        fakes::FakeMarker marker;
        TrendPenForm form() { return {cmbTrend, lblDesc, lblUdm, colore, marker}; }
    };

    fakes::FakeAmbient ambient;
    fakes::FakeServices services;
    fakes::FakeFrame control, frmIntervallo, frmPenne;
    fakes::FakeComboBox cmbVRX, cmbRange, cmbScala;
    fakes::FakeDatePicker DataIniziale, TimeIniziale, DataFinale, TimeFinale;
    fakes::FakeButton cmdIndietro2, cmdIndietro, cmdAvanti, cmdAvanti2, cmdAggiornaDati;
    fakes::FakeCheckBox chkAutoUpdate, chkNormalizzato;
    std::array<Pen, ChartSeriesCount> penne;
    fakes::FakeColorDialog dlgChart;
    fakes::FakePointer pointer;
    fakes::FakeChart chart;
    fakes::FakeTimer t, tmr;
    std::array<TrendPenForm, ChartSeriesCount> pens{penne[0].form(), penne[1].form(),
                                                    penne[2].form(), penne[3].form()};
    TrendViewerForm form{control,
                         frmIntervallo,
                         frmPenne,
                         cmbVRX,
                         cmbRange,
                         DataIniziale,
                         TimeIniziale,
                         DataFinale,
                         TimeFinale,
                         cmdIndietro2,
                         cmdIndietro,
                         cmdAvanti,
                         cmdAvanti2,
                         cmdAggiornaDati,
                         chkAutoUpdate,
                         chkNormalizzato,
                         cmbScala,
                         pens,
                         dlgChart,
                         pointer,
                         chart,
                         t,
                         tmr};
    TrendViewer viewer{form, ambient, services};
};

}  // namespace velt
