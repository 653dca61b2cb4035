// SPDX-License-Identifier: MIT
#include "adapters/access/jet/fileerror.h"

#include <cerrno>
#include <system_error>

namespace velt::jet {

RuntimeError systemError(int error, const std::filesystem::path& path) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: return fileError(ErrorNumber::FileNotFound, path, "non esiste");
        case EISDIR: return fileError(ErrorNumber::PathAccess, path, "è una cartella");
        case EACCES:
        case EPERM: return fileError(ErrorNumber::PathAccess, path, "permesso negato");
        case EROFS: return fileError(ErrorNumber::PathAccess, path, "il disco è di sola lettura");
        case ENOSPC:
        case EDQUOT: return fileError(ErrorNumber::PathAccess, path, "il disco è pieno");
        case EEXIST: return fileError(ErrorNumber::PathAccess, path, "esiste già");
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
            return fileError(ErrorNumber::FileLocked, path, "è bloccato da un altro programma");
        default:
            return fileError(ErrorNumber::PathAccess, path,
                             "errore di sistema " + std::to_string(error) + " (" +
                                 std::generic_category().message(error) + ")");
    }
}

}  // namespace velt::jet
