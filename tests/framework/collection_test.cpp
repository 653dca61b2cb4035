// SPDX-License-Identifier: MIT
#include "framework/collection.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

#include <string>

namespace velt {
namespace {

struct CollectionTest : testing::Test {
    CollectionTest() {
        for (const char* name : {"a", "b", "c"}) members.Add(name, std::string("key ") + name);
    }
    Collection<std::string> members;
};

TEST_F(CollectionTest, FindsByPositionAndByKeyAlsoAfterARemoval) {
    std::string& last = members.Item(3);
    members.Remove(1);
    EXPECT_EQ(members.Count(), 2);
    EXPECT_EQ(members.Item(1), "b");
    EXPECT_EQ(&members.Item("key c"), &last);
    EXPECT_EQ(&members.Item(2), &last);
    members.Add("without key");
    members.Add("again", "key a");
    EXPECT_EQ(members.Item("key a"), "again");
    members.Remove(3);
    EXPECT_EQ(members.Item(3), "again");
}

TEST_F(CollectionTest, RaisesTheErrorsOfCollections) {
    EXPECT_EQ(errorOf([&] { members.Add("x", "key b"); }), ErrorNumber::KeyInUse);
    EXPECT_EQ(members.Count(), 3);
    for (const int position : {-1, 0, 4}) {
        EXPECT_EQ(errorOf([&] { (void)members.Item(position); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { members.Remove(position); }), ErrorNumber::SubscriptOutOfRange);
    }
    EXPECT_EQ(errorOf([&] { (void)members.Item("KEY A"); }), ErrorNumber::InvalidCall);
    EXPECT_EQ(errorOf([&] { (void)members.Item(""); }), ErrorNumber::InvalidCall);
    members.Clear();
    EXPECT_EQ(errorOf([&] { (void)members.Item("key a"); }), ErrorNumber::InvalidCall);
}

}  // namespace
}  // namespace velt
