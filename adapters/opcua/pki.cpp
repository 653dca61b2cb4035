// SPDX-License-Identifier: MIT
#include "adapters/opcua/pki.h"

#include "adapters/opcua/certificatenames.h"
#include "platform/runtimeerror.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>

namespace velt::opcua {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MaxFile = 1'048'576;
constexpr int MaxRejected = 100;

[[noreturn]] void unusable(const fs::path& path) {
    throw RuntimeError(ErrorNumber::PathAccess, "Impossibile usare il file " + path.string());
}

std::optional<std::string> contents(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return std::nullopt;
    // A folder cannot be read, and a pipe would be waited for without end.
    const std::uintmax_t size = fs::is_regular_file(status) ? fs::file_size(path, error) : 0;
    if (error || size == 0 || size > MaxFile) unusable(path);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::ifstream stream(path, std::ios::binary);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(size))) unusable(path);
    return bytes;
}

/// Whole or not at all, and never readable by others.
void store(const fs::path& path, std::string_view bytes) {
    const fs::path temporary = path.string() + ".tmp" + std::to_string(getpid());
    const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool written =
        file >= 0 && write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    if (file >= 0) ::close(file);
    if (!written || rename(temporary.c_str(), path.c_str()) != 0) {
        unlink(temporary.c_str());
        unusable(path);
    }
}

void makeFolder(const fs::path& path) {
    std::error_code error;
    fs::create_directories(path, error);
    if (error) unusable(path);
}

std::string hostName() {
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 && name[0] ? name.data() : "localhost";
}

}  // namespace

CertificateOwner Pki::thisStation() {
    const std::string host = hostName();
    return {"CN=VELT Viewers", {"DNS:" + host, "URI:urn:" + host + ":velt"}};
}

OwnCertificate Pki::own(const CertificateOwner& owner) const {
    const fs::path certificatePath = folder_ / "own" / "cert.der";
    const fs::path keyPath = folder_ / "own" / "key.der";
    // Made beforehand, so that an integrator finds where his files go.
    for (const char* name : {"own", "trusted", "issuers", "rejected"}) makeFolder(folder_ / name);
    auto certificate = contents(certificatePath);
    auto key = contents(keyPath);
    OwnCertificate own;
    if (!certificate && !key) {
        own = {makeCertificate(owner), {}};
        store(keyPath, own.key);
        store(certificatePath, own.certificate);
    } else {
        if (!certificate) unusable(certificatePath);
        if (!key) unusable(keyPath);
        own = {{std::move(*certificate), std::move(*key)}, {}};
    }
    const CertificateNames names = namesOf(own.certificate);
    if (names.uris.empty())
        throw RuntimeError(ErrorNumber::PathAccess, "Il certificato " + certificatePath.string() +
                                                        " non ha il nome dell'applicazione (URI)");
    own.uri = names.uris.front();
    return own;
}

std::vector<std::string> Pki::files(const char* name, const char* ending) const {
    std::vector<std::string> all;
    std::error_code error;
    fs::directory_iterator entry(folder_ / name, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
        if (entry->path().extension() == ending)
            if (auto bytes = contents(entry->path())) all.push_back(std::move(*bytes));
    if (error) unusable(folder_ / name);
    return all;
}

void Pki::storeRejected(std::string_view certificate) const {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a: a name, not a proof
    for (const char c : certificate) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "%016llx.der", static_cast<unsigned long long>(hash));
    std::error_code error;
    const auto count = std::distance(fs::directory_iterator(folder_ / "rejected", error), {});
    if (!error && count < MaxRejected) store(folder_ / "rejected" / name.data(), certificate);
}

}  // namespace velt::opcua
