// SPDX-License-Identifier: MIT
#include "adapters/ini/inidocument.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace velt::ini {
namespace {

using namespace std::string_literals;

struct Edit {
    const char* what;
    std::string before;
    const char *key, *value;  ///< set in section S
    std::string after;
};

TEST(IniDocument, ChangesNothingButTheLineOfTheKey) {
    const std::vector<Edit> edits = {
        {"a changed value keeps all around it",
         "; testa\n\n[S]\n# nota\nk = 1  \nrottame\nk=doppia\n\n[T]\nk=9\n", "k", "2",
         "; testa\n\n[S]\n# nota\nk = 2\nrottame\nk=doppia\n\n[T]\nk=9\n"},
        {"the same value keeps even the blanks", "[S]\nk = \"1\"  \n", "k", "1",
         "[S]\nk = \"1\"  \n"},
        {"a new key follows the section's last key", "[S]\na=1\n\n; di T\n[T]\nb=2\n", "n", "3",
         "[S]\na=1\nn=3\n\n; di T\n[T]\nb=2\n"},
        {"names are case-sensitive, and a section in two blocks grows in the first",
         "[S]\nK=1\n[s]\nk=1\n[S]\nb=2\n", "k", "2", "[S]\nK=1\nk=2\n[s]\nk=1\n[S]\nb=2\n"},
        {"a missing last line end is made up, blanks are quoted", "[S]\r\na=1", "n", " 2 ",
         "[S]\r\na=1\r\nn=\" 2 \"\r\n"},
        {"the mark stays", "\xEF\xBB\xBF[S]\nk=1\n", "k", "è", "\xEF\xBB\xBF[S]\nk=è\n"},
        {"neither a commented key nor a header without its bracket counts", "[S]\n;k=1\n#k=1\n[T\n",
         "k", "2", "[S]\nk=2\n;k=1\n#k=1\n[T\n"},
        {"Windows-1252 stays", "[S]\nCitt\xE0=Forl\xEC\n", "Città", "Cefalù €",
         "[S]\nCitt\xE0=Cefal\xF9 \x80\n"},
        {"Windows-1252 gives way to UTF-8", "; Forl\xEC\n[S]\nk=1\n", "k", "Łódź",
         "\xEF\xBB\xBF; Forlì\n[S]\nk=Łódź\n"},
        {"line breaks are escaped", "[S]\n", "k", "a\r\nb=50%", "[S]\nk=%\"a%0D%0Ab=50%25\"\n"},
    };
    for (const Edit& edit : edits) {
        SCOPED_TRACE(edit.what);
        IniDocument document(edit.before);
        document.set("S", edit.key, edit.value);
        EXPECT_EQ(document.bytes(), edit.after);
        EXPECT_EQ(IniDocument(edit.after).get("S", edit.key), edit.value);
    }
}

TEST(IniDocument, ReadsWhatOtherProgramsWriteAndWritesPlainTextsPlainly) {
    const std::pair<std::string, std::string> lines[] = {
        {"k=\"C:\\nuovo\\\"", "C:\\nuovo\\"}, {"  k\t= due parole \t", "due parole"},
        {"k=\"aperta", "\"aperta"},           {"k=%\"50%\"", "50%"},
        {"k=prima\nk=seconda", "prima"},
    };
    for (const auto& [line, value] : lines)
        EXPECT_EQ(IniDocument("[ S ] ; nota\n" + line + "\n").get("S", "k"), value) << line;
    for (const char* value : {"", "due parole", "a=b;c#d", "; x", "[x]", "C:\\n\\t", "100%"}) {
        IniDocument document("[S]\n");
        document.set("S", "k", value);
        EXPECT_EQ(document.bytes(), "[S]\nk="s + value + "\n");
    }
}

/// Whatever stands in a file, whatever is written, under whatever names: it reads back, and what
/// stood there before can still be read.
TEST(IniDocument, EveryTextReadsBackFromEveryFile) {
    std::vector<std::string> pieces = {
        "", "%0A", "%\"", "è", "Ł", "Ã¨", "\xEF\xBB\xBF", "\xF0\x9F\x9A\xB0", "k=v", "\n[S]\n"};
    for (const char c : " \t\n\r\"';#=[]%aZSk\\\x1A\xE8\xC3\x80\xFF\0"s) pieces.emplace_back(1, c);
    std::mt19937 random(20060314);
    const auto text = [&](std::size_t most) {
        std::string result;
        for (auto n = random() % (most + 1); n > 0; --n) result += pieces[random() % pieces.size()];
        return result;
    };
    for (int round = 0; round < 5000; ++round) {
        const std::string bytes = text(12), section = text(2), key = text(2), value = text(4);
        IniDocument document(bytes);
        ASSERT_EQ(document.bytes(), bytes);
        const auto other = section == "S" && key == "k" ? value : document.get("S", "k");
        document.set(section, key, value);
        const std::string written = document.bytes();
        const IniDocument again(written);
        ASSERT_EQ(again.get(section, key), value) << testing::PrintToString(written);
        ASSERT_EQ(document.get(section, key), value);
        ASSERT_EQ(again.get("S", "k"), other) << testing::PrintToString(written);
        document.set(section, key, value);
        ASSERT_EQ(document.bytes(), written) << "a second time changes nothing";
    }
}

}  // namespace
}  // namespace velt::ini
