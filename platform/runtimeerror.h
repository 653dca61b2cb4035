// SPDX-License-Identifier: MIT
#pragma once

#include "platform/export.h"

#include <stdexcept>
#include <string>

namespace velt {

/// The numbers of RuntimeError. Numbers of a database or of an OPC server may occur beside these.
enum class ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    PathAccess = 75,
    ObjectNotSet = 91,
    KeyInUse = 457,
    Cancelled = 3059,  ///< the operator, or the closing of the control, ended the operation
    NoCurrentRecord = 3021,
    UnknownField = 3265,          ///< a field of a Recordset that is not there
    ObjectClosed = 3704,          ///< a closed Connection or Recordset was used
    ObjectOpen = 3705,            ///< one that must be closed for this is open
    InvalidConnection = 3709,     ///< a Recordset was given a connection that it cannot use
    UnsupportedStatement = 3065,  ///< a statement other than SELECT
    SyntaxError = 3075,           ///< a statement that cannot be parsed
    UnknownTable = 3078,
    UnknownColumn = 3061,
    FileLocked = 3045,
    UnknownFileFormat = 3343,  ///< not an Access file, damaged, or truncated
    EncryptedFile = 3031,      ///< the file has a password or is encrypted
};

/// The one exception type of the library: a number that programs can test and a description that
/// operators can read (in Italian).
class VELT_API RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, const std::string& description)
        : std::runtime_error(description), number_(number) {}
    RuntimeError(ErrorNumber number, const std::string& description)
        : RuntimeError(static_cast<int>(number), description) {}
    /// With the usual description of `number`.
    explicit RuntimeError(ErrorNumber number);

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] std::string Description() const { return what(); }
    [[nodiscard]] bool is(ErrorNumber number) const { return number_ == static_cast<int>(number); }

private:
    int number_;
};

/// Runs one step whose failure is to be skipped: the caller says so by using this. Only
/// RuntimeError is skipped; anything else is a fault of the program and goes on.
template <typename Step>
void ignoreErrors(Step&& step) {
    try {
        step();
    } catch (const RuntimeError&) {
        // Skipped on purpose: that is what the caller asked for.
    }
}

}  // namespace velt
