// SPDX-License-Identifier: MIT
#include "connviewer/connlayout.h"

#include "tests/fakes/fakewidgets.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

class ConnLayoutTest : public testing::Test {
protected:
    void resize(int width, int height) {
        control.width = width;
        control.height = height;
        layOut({control, frame, log, list});
    }
    fakes::FakeSurface control;
    fakes::FakePlaced frame{0, 45, 1, 1};
    fakes::FakePlaced log{600, 3000, 1, 1};
    fakes::FakePlaced list{6000, 300, 3000, 1};
};

TEST_F(ConnLayoutTest, FrameLogAndListFollowTheSize) {
    control.border = 60;
    resize(12000, 6000);
    EXPECT_EQ(frame.Width(), 11940);
    EXPECT_EQ(frame.Height(), 5895);
    EXPECT_EQ(log.Width(), 11940 - 600 - 180);
    EXPECT_EQ(log.Height(), 5895 - 3000 - 180);
    EXPECT_EQ(list.Top() + list.Height(), frame.Top() + frame.Height());
    EXPECT_EQ(list.Width(), 3000);
}

TEST_F(ConnLayoutTest, TooSmallASizeGrowsBack) {
    resize(8000, 3000);
    EXPECT_EQ(control.width, 9435);
    EXPECT_EQ(control.height, 4110);
    EXPECT_EQ(frame.Width(), 9435);
    resize(20000, 3000);
    EXPECT_EQ(control.width, 20000);
    EXPECT_EQ(control.height, 4110);
}

TEST_F(ConnLayoutTest, ASizeThatIsRefusedIsSkipped) {
    log = {10000, 9000, 77, 88};
    resize(9435, 4110);
    EXPECT_EQ(log.Width(), 77);
    EXPECT_EQ(log.Height(), 88);
    EXPECT_EQ(list.Height(), 45 + 4065 - 300) << "the next step goes on";
}

}  // namespace
}  // namespace velt
