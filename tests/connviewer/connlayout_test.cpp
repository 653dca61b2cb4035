// SPDX-License-Identifier: MIT
#include "connviewer/connlayout.h"

#include "tests/fakes/fakewidgets.h"

#include <gtest/gtest.h>

namespace velt {
namespace {

TEST(ConnLayoutTest, FrameLogAndListFollowTheSizeFromTheMinimumOn) {
    fakes::FakeSurface control;
    fakes::FakePlaced frame{0, 45, 1, 1};
    fakes::FakePlaced log{600, 3000, 1, 1};
    fakes::FakePlaced list{6000, 300, 3000, 1};
    control.border = 60;
    control.width = 12000;
    control.height = 6000;
    layOut({control, frame, log, list});
    EXPECT_EQ(frame.Width(), 11940);
    EXPECT_EQ(frame.Height(), 5895);
    EXPECT_EQ(log.Width(), 11940 - 600 - 180);
    EXPECT_EQ(log.Height(), 5895 - 3000 - 180);
    EXPECT_EQ(list.Top() + list.Height(), frame.Top() + frame.Height());
    EXPECT_EQ(list.Width(), 3000);

    control.height = 3000;
    layOut({control, frame, log, list});
    EXPECT_EQ(control.width, 12000);
    EXPECT_EQ(control.height, 4110);

    fakes::FakePlaced tooFar{20000, 9000, 77, 88};
    layOut({control, frame, tooFar, list});
    EXPECT_EQ(tooFar.Width(), 77) << "a size that is refused is skipped";
    EXPECT_EQ(tooFar.Height(), 88);
    EXPECT_EQ(list.Height(), 45 + 4005 - 300) << "the next step goes on";
}

}  // namespace
}  // namespace velt
