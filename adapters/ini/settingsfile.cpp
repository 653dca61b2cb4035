// SPDX-License-Identifier: MIT
#include "adapters/ini/settingsfile.h"

#include "platform/paths.h"
#include "platform/runtimeerror.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace velt::ini {
namespace {

namespace fs = std::filesystem;

/// Links behind one another until we call it a circle.
constexpr int mostLinks = 40;

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto retrying(Call call) {
    for (;;) {
        const auto result = call();
        if (result >= 0 || errno != EINTR) return result;
    }
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int number() const { return number_; }
    /// Some file systems tell of a full disk only now.
    [[nodiscard]] bool close() { return ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

void writeAll(const Descriptor& file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const auto written =
            retrying([&] { return write(file.number(), bytes.data(), bytes.size()); });
        if (written < 0) failWith(errno, path);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

/// Owner before mode: changing the owner may clear bits of the mode.
void copyOwnerAndMode(const Descriptor& file, const struct stat& original,
                      const std::string& path) {
    if (fchown(file.number(), original.st_uid, original.st_gid) != 0) {
        // Not ours to give away. A group of ours can still be kept; if that fails too, the file
        // belongs to the operator who saves, which is better than not to save.
        [[maybe_unused]] const int kept =
            fchown(file.number(), static_cast<uid_t>(-1), original.st_gid);
    }
    if (fchmod(file.number(), original.st_mode & 07777u) != 0) failWith(errno, path);
}

/// Makes the bytes durable. File systems that know no such thing are as good as they are.
void sync(const Descriptor& file, const std::string& path) {
    if (retrying([&] { return fsync(file.number()); }) != 0 && errno != EINVAL && errno != ENOSYS)
        failWith(errno, path);
}

void writeNewFile(const std::string& path, const std::string& bytes, const struct stat* original) {
    unlink(path.c_str());  // left by a crash: callers come one at a time
    Descriptor file(retrying(
        [&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); }));
    if (file.number() < 0) failWith(errno, path);
    writeAll(file, bytes, path);
    if (original != nullptr) copyOwnerAndMode(file, *original, path);
    sync(file, path);
    if (!file.close()) failWith(errno, path);
}

/// A file that does not exist, in a folder that should.
fs::path placeOfNewFile(const std::string& path) {
    std::string separated = path;
    std::ranges::replace(separated, '\\', '/');
    const fs::path file(separated);
    const auto folder = resolvePath(file.parent_path().string());
    return folder ? *folder / file.filename() : file;
}

}  // namespace

void failWith(int systemError, const std::string& path) {
    throw RuntimeError(ErrorNumber::PathAccess,
                       "«" + path + "»: " + std::generic_category().message(systemError));
}

std::string companionPath(const std::string& path, const std::string& suffix) {
    const fs::path file(path);
    return (file.parent_path() / ("." + file.filename().string() + suffix)).string();
}

std::string settingsPath(const std::string& path) {
    if (path.find('\0') != std::string::npos) failWith(EINVAL, path);
    fs::path file = resolvePath(path).value_or(placeOfNewFile(path));
    std::error_code noLink;
    for (int links = 0; links < mostLinks; ++links) {
        const fs::path target = fs::read_symlink(file, noLink);
        if (noLink) return file.string();
        file = file.parent_path() / target;  // an absolute target replaces all
    }
    failWith(ELOOP, path);
}

std::optional<std::string> readFile(const std::string& path) {
    // Not blocking: the path may lead to a pipe.
    const Descriptor file(
        retrying([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (file.number() < 0) {
        if (errno == ENOENT) return std::nullopt;
        failWith(errno, path);
    }
    struct stat status {};
    if (fstat(file.number(), &status) != 0) failWith(errno, path);
    if (S_ISDIR(status.st_mode)) failWith(EISDIR, path);
    if (!S_ISREG(status.st_mode)) failWith(EINVAL, path);

    std::string bytes;
    std::array<char, 65536> buffer{};
    for (;;) {
        const auto count =
            retrying([&] { return read(file.number(), buffer.data(), buffer.size()); });
        if (count < 0) failWith(errno, path);
        if (count == 0) return bytes;
        bytes.append(buffer.data(), static_cast<std::size_t>(count));
        if (bytes.size() > largestFile) failWith(EFBIG, path);
    }
}

void replaceFile(const std::string& path, const std::string& bytes) {
    struct stat original {};
    const bool exists = stat(path.c_str(), &original) == 0;
    if (!exists && errno != ENOENT) failWith(errno, path);
    // A rename would also replace what is write-protected.
    if (exists && faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0) failWith(errno, path);

    const std::string fresh = companionPath(path, ".new");
    try {
        writeNewFile(fresh, bytes, exists ? &original : nullptr);
        if (rename(fresh.c_str(), path.c_str()) != 0) failWith(errno, path);
    } catch (const RuntimeError&) {
        unlink(fresh.c_str());
        throw;
    }
    // The name itself becomes durable with its folder; where that cannot be asked for, the file
    // is complete all the same.
    const std::string folder = fs::path(path).parent_path().string();
    const Descriptor parent(
        open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.number() >= 0) fsync(parent.number());
}

}  // namespace velt::ini
