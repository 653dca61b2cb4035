// SPDX-License-Identifier: MIT
#pragma once

#include <open62541/types.h>
#include <open62541/types_generated.h>
#include <open62541/types_generated_handling.h>

#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Values of the OPC UA library that clean up after themselves, and texts.
namespace velt::opcua {

/// One value of the library's type number `Type` (UA_TYPES_...), with all that it owns.
template <typename T, std::size_t Type>
class Owned {
public:
    Owned() { UA_init(&value_, type()); }
    /// Takes over what `value` owns.
    explicit Owned(const T& value) : value_(value) {}
    Owned(const Owned& other) : Owned(copied(other.value_)) {}
    Owned(Owned&& other) noexcept : Owned() { std::swap(value_, other.value_); }
    Owned& operator=(Owned other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Owned() { UA_clear(&value_, type()); }

    [[nodiscard]] static Owned copyOf(const T& value) { return copied(value); }
    /// Gives up what the value owns.
    [[nodiscard]] T release() {
        const T value = value_;
        UA_init(&value_, type());
        return value;
    }
    [[nodiscard]] static const UA_DataType* type() { return &UA_TYPES[Type]; }

    [[nodiscard]] T* get() { return &value_; }
    [[nodiscard]] const T* get() const { return &value_; }
    [[nodiscard]] T& operator*() { return value_; }
    [[nodiscard]] const T& operator*() const { return value_; }
    [[nodiscard]] T* operator->() { return &value_; }
    [[nodiscard]] const T* operator->() const { return &value_; }

private:
    static Owned copied(const T& value) {
        Owned copy;
        if (UA_copy(&value, &copy.value_, type()) != UA_STATUSCODE_GOOD) throw std::bad_alloc();
        return copy;
    }

    T value_;
};

using OwnedVariant = Owned<UA_Variant, UA_TYPES_VARIANT>;
using OwnedString = Owned<UA_String, UA_TYPES_STRING>;
using OwnedBytes = Owned<UA_ByteString, UA_TYPES_BYTESTRING>;

/// The address of a node.
class NodeId : public Owned<UA_NodeId, UA_TYPES_NODEID> {
public:
    using Owned::Owned;
    NodeId(Owned other) : Owned(std::move(other)) {}
    friend bool operator==(const NodeId& a, const NodeId& b) {
        return UA_NodeId_equal(a.get(), b.get());
    }
    struct Hash {
        std::size_t operator()(const NodeId& id) const { return UA_NodeId_hash(id.get()); }
    };
};

[[nodiscard]] inline std::string_view view(const UA_String& text) {
    return {reinterpret_cast<const char*>(text.data), text.length};
}
[[nodiscard]] inline std::string toText(const UA_String& text) { return std::string(view(text)); }

/// A string of the library that only points to `text`: for requests, never to be cleared.
[[nodiscard]] inline UA_String borrowed(std::string_view text) {
    return {text.size(),
            reinterpret_cast<UA_Byte*>(const_cast<char*>(text.data()))};  // never written to
}

/// The same for each of `texts`.
[[nodiscard]] inline std::vector<UA_String> borrowedAll(const std::vector<std::string>& texts) {
    std::vector<UA_String> all;
    all.reserve(texts.size());
    for (const std::string& text : texts) all.push_back(borrowed(text));
    return all;
}

/// A string of the library with a copy of `text`, to be taken over by an owner.
[[nodiscard]] inline UA_String copied(std::string_view text) {
    return OwnedString::copyOf(borrowed(text)).release();
}

/// The text form, such as "ns=2;s=Pompa.Stato".
[[nodiscard]] inline std::string toText(const UA_NodeId& id) {
    OwnedString text;
    if (UA_NodeId_print(&id, text.get()) != UA_STATUSCODE_GOOD) throw std::bad_alloc();
    return toText(*text);
}

}  // namespace velt::opcua
