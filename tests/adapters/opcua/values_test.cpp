// SPDX-License-Identifier: MIT
// Between what a server sends and what the logic takes.
#include "adapters/opcua/values.h"
#include "adapters/opcua/quality.h"
#include "adapters/opcua/times.h"
#include "opcviewer/quality.h"
#include "opcviewer/valuetext.h"
#include "platform/runtimeerror.h"
#include "tests/errorof.h"

#include <open62541/nodeids.h>
#include <open62541/statuscodes.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>

namespace velt::opcua {
namespace {

using testing::HasSubstr;

constexpr UA_Int32 Scalar = UA_VALUERANK_SCALAR;

template <typename T>
OwnedVariant scalar(const T& value, int type) {
    OwnedVariant result;
    UA_Variant_setScalarCopy(result.get(), &value, &UA_TYPES[type]);
    return result;
}

template <typename T>
OwnedVariant array(std::initializer_list<T> values, int type) {
    OwnedVariant result;
    UA_Variant_setArrayCopy(result.get(), values.begin(), values.size(), &UA_TYPES[type]);
    return result;
}

TEST(ValuesTest, ValuesBecomeVariants) {
    std::string accents = "a";  // a text is cut between characters
    while (accents.size() < 80'000) accents += "è";
    const UA_NodeId node = UA_NODEID_NUMERIC(2, 7);
    OwnedVariant matrix = array<UA_Int16>({1, 2, 3, 4}, UA_TYPES_INT16);
    matrix->arrayDimensions = static_cast<UA_UInt32*>(UA_Array_new(2, &UA_TYPES[UA_TYPES_UINT32]));
    matrix->arrayDimensionsSize = 2;
    matrix->arrayDimensions[0] = matrix->arrayDimensions[1] = 2;
    OwnedVariant tooMany;
    UA_Variant_setArray(tooMany.get(), UA_Array_new(10'001, &UA_TYPES[UA_TYPES_BYTE]), 10'001,
                        &UA_TYPES[UA_TYPES_BYTE]);
    struct Case {
        OwnedVariant value;
        Variant expected;
    };
    const std::vector<Case> cases = {
        {OwnedVariant(), Variant()},
        {scalar<UA_UInt16>(65535, UA_TYPES_UINT16), 65535},
        {scalar<UA_UInt32>(4'000'000'000, UA_TYPES_UINT32), 4e9},
        {scalar<UA_Int64>(INT64_MIN, UA_TYPES_INT64), "-9223372036854775808"},
        {array<UA_UInt32>({1, 2}, UA_TYPES_UINT32), std::vector<std::int32_t>{1, 2}},
        {array<UA_UInt32>({1, UINT32_MAX}, UA_TYPES_UINT32), std::vector<double>{1, 4294967295.0}},
        {array<UA_Int64>({1, INT64_MAX}, UA_TYPES_INT64),
         std::vector<std::string>{"1", "9223372036854775807"}},
        {array<UA_Boolean>({true, false}, UA_TYPES_BOOLEAN), std::vector<bool>{true, false}},
        {matrix, std::vector<std::int16_t>{1, 2, 3, 4}},
        {scalar(borrowed("\x01\x02"), UA_TYPES_BYTESTRING), std::vector<std::uint8_t>{1, 2}},
        {scalar(UA_LocalizedText{borrowed("it"), borrowed("sì")}, UA_TYPES_LOCALIZEDTEXT), "sì"},
        {scalar(node, UA_TYPES_NODEID), "\"ns=2;i=7\""},
        {array({node}, UA_TYPES_NODEID), std::vector<std::string>{"\"ns=2;i=7\""}},
        {scalar(borrowed(accents), UA_TYPES_STRING),
         accents.substr(0, 65'535) + " [...] (80001 byte)"},
        {tooMany, "[10001 elementi Byte]"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(toVariant(*c.value), c.expected)
            << "instead of " << FormattaValore(c.expected, {}).substr(0, 100);
}

TEST(ValuesTest, ServersGetTheTypeTheyExpect) {
    struct Case {
        Variant value;
        ValueType expected;
        OwnedVariant result;
    };
    const std::vector<Case> cases = {
        {std::int16_t{-128}, {UA_TYPES_SBYTE, Scalar}, scalar<UA_SByte>(-128, UA_TYPES_SBYTE)},
        {65535, {UA_TYPES_UINT16, Scalar}, scalar<UA_UInt16>(65535, UA_TYPES_UINT16)},
        {"sì", {UA_TYPES_STRING, Scalar}, scalar(borrowed("sì"), UA_TYPES_STRING)},
        {std::vector<std::int32_t>{1, 2},
         {UA_TYPES_UINT16, UA_VALUERANK_ONE_DIMENSION},
         array<UA_UInt16>({1, 2}, UA_TYPES_UINT16)},
        {7, {UA_TYPES_UINT64, Scalar}, scalar<UA_UInt64>(7, UA_TYPES_UINT64)},
        {0.5, {UA_TYPES_FLOAT, Scalar}, scalar(0.5F, UA_TYPES_FLOAT)},
        {7, {}, scalar<UA_Int32>(7, UA_TYPES_INT32)},
        {7, {UA_TYPES_INT16, UA_VALUERANK_ANY}, scalar<UA_Int16>(7, UA_TYPES_INT16)},
        {std::vector<bool>{true, false},
         {UA_TYPES_BOOLEAN, UA_VALUERANK_ONE_DIMENSION},
         array<UA_Boolean>({true, false}, UA_TYPES_BOOLEAN)},
        {std::vector<std::uint8_t>{1, 2},
         {UA_TYPES_BYTESTRING, Scalar},
         scalar(borrowed("\x01\x02"), UA_TYPES_BYTESTRING)},
    };
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(UA_order(toUa(cases[i].value, cases[i].expected).get(), cases[i].result.get(),
                           OwnedVariant::type()),
                  UA_ORDER_EQ)
            << "case " << i;
}

TEST(ValuesTest, WhatDoesNotFitIsRefusedWithTheReason) {
    struct Case {
        Variant value;
        ValueType expected;
        int number;
        const char* reason;
    };
    constexpr int Overflow = static_cast<int>(ErrorNumber::Overflow);
    constexpr int Mismatch = static_cast<int>(UA_STATUSCODE_BADTYPEMISMATCH);
    for (const Case& c : std::vector<Case>{
             {std::int16_t{128}, {UA_TYPES_SBYTE, Scalar}, Overflow, "tra -128 e 127"},
             {65536, {UA_TYPES_UINT16, Scalar}, Overflow, "tra 0 e 65535"},
             {"1", {UA_TYPES_INT32, Scalar}, Mismatch, "un numero"},
             {1, {UA_TYPES_INT32, 1}, Mismatch, "un array"},
             {1e300, {UA_TYPES_FLOAT, Scalar}, Overflow, "non è compreso"},
             {std::nan(""), {UA_TYPES_INT32, Scalar}, Overflow, "non è compreso"},
             {9.3e18, {UA_TYPES_INT64, Scalar}, Overflow, "non è compreso"},
             {0.5, {UA_TYPES_INT32, Scalar}, Mismatch, "numero intero"},
             {true, {UA_TYPES_INT32, Scalar}, Mismatch, "logici"},
             {1, {UA_TYPES_BOOLEAN, Scalar}, Mismatch, "logici"},
             {1, {UA_TYPES_STRING, Scalar}, Mismatch, "un testo"},
             {1, {UA_TYPES_DATETIME, Scalar}, Mismatch, "una data"},
             {std::vector<std::int32_t>{1}, {UA_TYPES_INT32, Scalar}, Mismatch, "un valore solo"},
             {std::vector<std::int32_t>{1}, {UA_TYPES_INT32, 2}, Mismatch, "matrici"},
             {std::vector<std::int32_t>{1, 70000}, {UA_TYPES_INT16, 1}, Overflow, "32767"},
             {Variant(), {UA_TYPES_INT32, Scalar}, Mismatch, "Non c'è un valore"},
             {1, {UA_TYPES_VARIANT, Scalar}, Mismatch, "non si può scrivere"},
         }) {
        const RuntimeError error = raisedBy([&] { (void)toUa(c.value, c.expected); });
        EXPECT_EQ(error.Number(), c.number) << c.reason;
        EXPECT_THAT(error.Description(), HasSubstr(c.reason));
    }
}

TEST(ValuesTest, CanonicalTypes) {
    const auto ns0 = [](UA_UInt32 number) { return UA_NODEID_NUMERIC(0, number); };
    const std::tuple<UA_NodeId, UA_Int32, int> cases[] = {
        {ns0(UA_NS0ID_UINT16), 1, 8210},      {ns0(UA_NS0ID_BOOLEAN), 0, 8203},
        {ns0(UA_NS0ID_FLOAT), 2, 8196},       {ns0(UA_NS0ID_DURATION), -1, 5},
        {ns0(UA_NS0ID_LOCALIZEDTEXT), -1, 8}, {ns0(UA_NS0ID_BYTESTRING), -1, 8209},
        {ns0(UA_NS0ID_BASEDATATYPE), -1, 12}, {UA_NODEID_NUMERIC(3, UA_NS0ID_INT32), -1, 12},
    };
    for (const auto& [dataType, rank, code] : cases)
        EXPECT_EQ(typeOf(dataType, rank).canonical(), code) << toText(dataType);
    for (int code : {2, 3, 4, 5, 7, 8, 11, 16, 17, 18, 19, 20, 21, 8194, 8200, 8203, 8211})
        EXPECT_EQ(typeOfCanonical(code).canonical(), code);
    EXPECT_EQ(typeOf(*array<UA_Float>({}, UA_TYPES_FLOAT)).canonical(), 8196);
    EXPECT_EQ(typeOf(UA_Variant{}).canonical(), 12);
}

class TimesTest : public testing::Test {
protected:
    TimesTest() { zone("CET-1CEST,M3.5.0,M10.5.0/3"); }
    ~TimesTest() override { zone(old_.c_str()); }
    static void zone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }

private:
    std::string old_ = getenv("TZ") ? getenv("TZ") : "";
};

/// Of a civil time in UTC.
UA_DateTime utc(const Date::Fields& fields) {
    const Date epoch = Date::fromFields({1601, 1, 1, 0, 0});
    const Date date = Date::fromFields(fields);
    return (date.milliseconds() - epoch.milliseconds()) * UA_DATETIME_MSEC;
}

TEST_F(TimesTest, InstantsAreShownInCivilTime) {
    const std::pair<UA_DateTime, Date::Fields> cases[] = {
        {utc({2026, 3, 29, 0, 59}), {2026, 3, 29, 1, 59}},  // the last minute of winter
        {utc({2026, 3, 29, 1, 0}), {2026, 3, 29, 3, 0}},
        {utc({1898, 1, 1, 6, 0}), {1898, 1, 1, 7, 0}},
        {utc({1700, 1, 1, 6, 0}) - 1, {1700, 1, 1, 6, 59, 59, 999}},
        {utc({9999, 12, 31, 20, 0}), {9999, 12, 31, 21, 0}},
    };
    for (const auto& [instant, local] : cases) {
        EXPECT_EQ(toDate(instant).fields(), local) << local.year;
        EXPECT_EQ(toInstant(toDate(instant)), instant - instant % UA_DATETIME_MSEC);
    }
}

TEST_F(TimesTest, WhatTheOtherSideCannotExpress) {
    for (const UA_DateTime instant : {std::numeric_limits<UA_DateTime>::min(),
                                      std::numeric_limits<UA_DateTime>::max(), UA_DateTime{0}})
        EXPECT_EQ(toDate(instant).isValid(), instant == 0) << instant;
    for (const Date& date : {Date(1e7), Date(-1e7), Date::fromFields({1600, 12, 31}),
                             Date(std::numeric_limits<double>::quiet_NaN())})
        EXPECT_EQ(errorOf([&] { (void)toInstant(date); }), ErrorNumber::Overflow) << date.serial();
}

TEST(QualityTest, StatusCodesBecomeQualityWords) {
    const std::pair<UA_StatusCode, std::int32_t> cases[] = {
        {UA_STATUSCODE_UNCERTAINENGINEERINGUNITSEXCEEDED, 84},
        {UA_STATUSCODE_UNCERTAINNOCOMMUNICATIONLASTUSABLEVALUE, 20},
        {UA_STATUSCODE_BADWAITINGFORINITIALDATA, 32},
        // Without a row of their own: by severity. The reserved severity is bad.
        {UA_STATUSCODE_GOODCLAMPED, 192},
        {UA_STATUSCODE_BADNODEIDUNKNOWN, 0},
        {0xFFFF0000, 0},
        // Limit bits; the overflow bit and those of structure and semantics do not count.
        {0x00000500, 193},
        {UA_STATUSCODE_UNCERTAINSUBNORMAL | 0x600, 90},
        {0x00000480, 192},
        {UA_STATUSCODE_GOODLOCALOVERRIDE | 0x0000C000, 216},
    };
    for (const auto& [status, quality] : cases)
        EXPECT_EQ(qualityOf(status), quality) << std::hex << status;
}

TEST(QualityTest, EveryQualityWithATextSurvivesTheWayThroughAStatusCode) {
    int texts = 0;
    for (int quality = 0; quality < 256; ++quality) {
        if (DescrizioneQualita(quality & ~3).starts_with("Quality")) continue;
        ++texts;
        EXPECT_EQ(qualityOf(statusOf(quality)), quality);
    }
    EXPECT_EQ(texts, 16 * 4);
}

}  // namespace
}  // namespace velt::opcua
