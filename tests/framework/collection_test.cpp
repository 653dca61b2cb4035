// SPDX-License-Identifier: MIT
#include "framework/collection.h"

#include "tests/errorof.h"

#include <gtest/gtest.h>

namespace velt {

TEST(CollectionTest, FindsByPositionAndByKeyAlsoAfterARemovalOrRaises) {
    Collection<std::string> members;
    for (const char* name : {"a", "b", "c"}) members.Add(name, std::string("key ") + name);
    const std::string& last = members.Item(3);
    members.Remove(1);
    EXPECT_EQ(&members.Item("key c"), &last);
    for (const int position : {0, 3}) {
        EXPECT_EQ(errorOf([&] { (void)members.Item(position); }), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { members.Remove(position); }), ErrorNumber::SubscriptOutOfRange);
    }
    EXPECT_EQ(errorOf([&] { (void)members.Item("KEY B"); }), ErrorNumber::InvalidCall);
}

}  // namespace velt
