// SPDX-License-Identifier: MIT
#include "adapters/opcua/certificatenames.h"
#include "adapters/opcua/configfile.h"
#include "adapters/opcua/endpoint.h"
#include "adapters/opcua/pki.h"
#include "platform/runtimeerror.h"
#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <gtest/gtest.h>

namespace velt::opcua {
namespace {

TEST(EndpointTest, NodesBecomeUrls) {
    const std::tuple<std::optional<std::string>, const char*, const char*> cases[] = {
        {std::nullopt, "opc.tcp://localhost:4840", "localhost"},
        {"", "opc.tcp://localhost:4840", "localhost"},
        {"10.0.0.7:4841", "opc.tcp://10.0.0.7:4841", "10.0.0.7"},
        {"::1", "opc.tcp://[::1]:4840", "::1"},
        {"[::1]:50", "opc.tcp://[::1]:50", "::1"},
        {"[::1]", "opc.tcp://[::1]:4840", "::1"},
        {"opc.tcp://a.b/x", "opc.tcp://a.b/x", "a.b"},
    };
    for (const auto& [node, url, host] : cases) {
        EXPECT_EQ(endpointOf(node), url);
        EXPECT_EQ(hostOf(url), host);
    }
}

TEST(ConfigFileTest, TakesWhatItKnowsAndNothingElse) {
    const TempFolder folder;
    const std::string path = (folder / "opc.ini").string();
    test::writeBytes(path,
                     "; prova\r\n[Altro]\nqualcosa\n[OPC]\n Security = SignAndEncrypt\r\n"
                     "User=anna\nPassword = a=b ;c\nPki=certificati\nCheckHost=no\n");
    const ConfigFile file = readConfigFile(path);
    EXPECT_EQ(file.security, ConfigFile::Security::SignAndEncrypt);
    EXPECT_EQ(file.user + "/" + file.password, "anna/a=b ;c");
    EXPECT_EQ(file.pkiFolder, folder / "certificati");
    EXPECT_FALSE(file.checkHost);
    for (const char* wrong : {"Securty=Sign", "Security=sign", "CheckHost=", "niente", "User=anna",
                              "Security=None\nUser=anna"}) {
        test::writeBytes(path, std::string("[OPC]\n") + wrong);
        EXPECT_THROW((void)readConfigFile(path), RuntimeError) << wrong;
    }
    EXPECT_THROW((void)readConfigFile((folder / "manca.ini").string()), RuntimeError);
    // What cannot be read, or says nothing to us, must not mean "no security".
    EXPECT_THROW((void)readConfigFile(folder.path().string()), RuntimeError);
    test::writeBytes(path, "[Opc]\nSecurity=Sign\n");
    EXPECT_THROW((void)readConfigFile(path), RuntimeError);
    test::writeBytes(path, "\xEF\xBB\xBF[OPC]\nSecurity=Sign\n");
    EXPECT_EQ(readConfigFile(path).security, ConfigFile::Security::Sign);
}

TEST(PkiTest, MakesACertificateOnce) {
    const TempFolder folder;
    const Pki pki(folder / "pki");
    const OwnCertificate own = pki.own();
    EXPECT_EQ(pki.own().certificate, own.certificate);
    const auto mode = std::filesystem::status(folder / "pki/own/key.der").permissions();
    EXPECT_EQ(static_cast<unsigned>(mode), 0600U);
    // Half a pair is not made whole by a new one: the old one may be known to servers.
    std::filesystem::remove(folder / "pki/own/key.der");
    EXPECT_THROW((void)pki.own(), RuntimeError);
}

TEST(CertificateNamesTest, DamagedCertificatesHaveFewerNames) {
    const TempFolder folder;
    const std::string whole = Pki(folder.path()).own().certificate;
    const CertificateNames names = namesOf(whole);
    ASSERT_EQ(names.hosts.size(), 1U);
    EXPECT_TRUE(holdsHost(names, names.hosts.front()));
    EXPECT_TRUE(holdsHost({{}, {}, {std::string("\x7F\0\0\x01", 4)}}, "127.0.0.1"));
    EXPECT_FALSE(holdsHost({{}, {}, {std::string("\x7F\0\0\x01", 4)}}, "127.0.0.2"));
    for (std::size_t i = 0; i < whole.size(); ++i) {
        EXPECT_TRUE(namesOf(whole.substr(0, i)).hosts.empty()) << i;
        std::string damaged = whole;
        damaged[i] = static_cast<char>(0xFF);
        (void)namesOf(damaged);  // reads within bounds, whatever lengths say
    }
}

}  // namespace
}  // namespace velt::opcua
