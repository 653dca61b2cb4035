// SPDX-License-Identifier: MIT
#include "framework/collection.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(CollectionTest, FindsByPositionAndByKeyAlsoAfterARemovalOrRaises) {
    Collection<std::string> members;
    for (const char* name : {"a", "b", "c"}) members.Add(name, std::string("key ") + name);
    EXPECT_EQ(errorOf([&] { members.Add("x", "key b"); }), ErrorNumber::KeyInUse);
    for (const int position : {-1, 0, 4}) {
        EXPECT_EQ(errorOf([&] { (void)members.Item(position); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { members.Remove(position); }), ErrorNumber::SubscriptOutOfRange);
    }
    std::string& last = members.Item(3);
    members.Remove(1);
    EXPECT_EQ(members.Count(), 2);
    EXPECT_EQ(members.Item(1), "b");
    EXPECT_EQ(&members.Item("key c"), &last);
    for (const char* key : {"key a", "KEY B", ""})
        EXPECT_EQ(errorOf([&] { (void)members.Item(key); }), ErrorNumber::InvalidCall);
}

}  // namespace
}  // namespace velt
