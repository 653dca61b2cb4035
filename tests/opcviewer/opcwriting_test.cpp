// SPDX-License-Identifier: MIT
#include "tests/opcviewer/opcviewerfixture.h"

namespace velt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Message = fakes::FakeMessageBox::Message;

class OPCWritingTest : public OPCViewerFixture {
protected:
    void write(int row, const std::string& text) {
        lvItem.selected = row;
        txtScrittura.text = text;
        cmdScrivi.click();
    }
    const int livello = 1, rotto = 2, soglia = 3;  // rows
};

TEST_F(OPCWritingTest, WritesIntoTheSelectedItem) {
    showAll();
    cmdAggiornaDati.click();  // handles are no row numbers any more
    write(soglia, "12;13");
    ASSERT_EQ(plant().written.size(), 1u);
    EXPECT_EQ(plant().written[0].first, "RTU01.Soglia");
    EXPECT_EQ(plant().written[0].second, Variant(std::int16_t{12}));
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OPCWritingTest, NothingToWriteOrNothingToWriteToIsSilent) {
    write(0, "12");
    showAll();
    write(soglia, "");
    write(0, "12");
    write(rotto, "12");
    plant().branches = {{"RTU01", {{"Rotto", vartype::R8, true}}}};
    cmdAggiornaDati.click();
    cmdEliminaTutto.click();
    ASSERT_EQ(lvItem.Count(), 1) << "the row of the refused item outlives its group";
    write(1, "12");
    EXPECT_TRUE(plant().written.empty());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(OPCWritingTest, TellsWhyNothingWasWritten) {
    plant().branches = {{"RTU01",
                         {{"Intero", vartype::I2},
                          {"Variant", 12},
                          {"Vettore", vartype::Array + vartype::I4},
                          {"Sola lettura", vartype::I2}}}};
    showAll();
    plant().failures.emplace("Write RTU01.Sola lettura", RuntimeError(-1073479672, "Negato"));
    struct Case {
        int row;
        const char* text;
        Message message;
    };
    const Case cases[] = {
        {1, "abc", {"Formato non valido", 48, "Errore"}},
        {1, "40000", {RuntimeError(ErrorNumber::Overflow).Description(), 48, "Error"}},
        {2, "1", {"Tipo dato non gestito!", 48, "Errore"}},
        {3, "1;x", {"Formato non valido", 48, "Errore"}},
        {4, "1", {"Negato", 48, "Error"}},
    };
    for (const Case& c : cases) {
        messages().clear();
        write(c.row, c.text);
        EXPECT_THAT(messages(), ElementsAre(c.message)) << c.text;
    }
    EXPECT_TRUE(plant().written.empty());

    // Whatever refuses the format, the server too, is told alike; a cancelled write is known.
    messages().clear();
    plant().failures.clear();
    plant().failures.emplace("Write RTU01.Intero", RuntimeError(ErrorNumber::TypeMismatch));
    plant().failures.emplace("Write RTU01.Sola lettura", RuntimeError(ErrorNumber::Cancelled));
    write(1, "1");
    write(4, "1");
    EXPECT_THAT(messages(), ElementsAre(Message{"Formato non valido", 48, "Errore"}));
}

}  // namespace
}  // namespace velt
