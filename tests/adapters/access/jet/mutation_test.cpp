// SPDX-License-Identifier: MIT
// Files with a few wrong bytes: whatever they say, reading ends, with values or with RuntimeError.
#include "platform/runtimeerror.h"
#include "tests/adapters/access/jet/everytype.h"
#include "tests/adapters/access/jet/patchedfile.h"

#include <random>

namespace velt::jet::test {
namespace {

constexpr int Mutants = 200;

/// Changes a few bytes: single ones, the heads of pages (where most of the structure is), a whole
/// stretch, or the file's end.
std::string mutate(std::string bytes, std::size_t pageSize, std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    constexpr unsigned char Usual[] = {0, 1, 0x7F, 0x80, 0xFF, 0x40};
    for (std::size_t changes = 1 + below(12); changes > 0; --changes) {
        const std::size_t page = below(bytes.size() / pageSize) * pageSize;
        const std::size_t at = below(3) == 0 ? below(bytes.size()) : page + below(120);
        const auto value = below(2) == 0 ? Usual[below(sizeof Usual)] : below(256);
        bytes[at] = static_cast<char>(value);
    }
    if (below(20) == 0) bytes.resize(below(bytes.size()) + 1);
    if (below(20) == 0) bytes.replace(below(bytes.size() / 2), 64, std::string(64, '\xFF'));
    return bytes;
}

class Mutation : public FileTest, public testing::WithParamInterface<Version> {};

INSTANTIATE_TEST_SUITE_P(Versions, Mutation, testing::Values(Version::Jet3, Version::Jet4));

TEST_P(Mutation, EndsWithValuesOrErrors) {
    writeEveryType(file_, GetParam());
    const std::string original = velt::test::bytesOf(file_);
    std::mt19937 random(20060314);
    int refused = 0, readable = 0, damaged = 0;
    for (int i = 0; i < Mutants; ++i) {
        velt::test::writeBytes(file_,
                               mutate(original, GetParam() == Version::Jet3 ? 2048 : 4096, random));
        try {
            const Reading reading = readEverything(file_);
            ++(reading.errors + reading.unreadable > 0 ? damaged : readable);
        } catch (const RuntimeError&) {
            ++refused;
        }
        // A writer must not trust the file either.
        ignoreErrors([&] {
            Writer writer = Writer::open(file_);
            for (const Row& row : everyTypeRows()) writer.append("T", row);
            writer.flush();
        });
    }
    // The mutants must reach all kinds of outcomes, or they test nothing.
    EXPECT_GT(refused, Mutants / 50);
    EXPECT_GT(damaged, Mutants / 50);
    EXPECT_GT(readable, Mutants / 50);
}

}  // namespace
}  // namespace velt::jet::test
