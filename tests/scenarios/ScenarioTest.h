#pragma once

#include "tests/desktop/TestDesktop.h"

#include <gtest/gtest.h>

namespace tollvane::test {

/// A test that runs on both desktops: it works with forms through the robot and looks at them
/// through their port; everything else is a fake on either desktop. Write nothing here that knows
/// which desktop it is on.
class ScenarioTest : public testing::Test {
protected:
    void TearDown() override { desk.expectNothingLeftOver(); }

    TestDesktop desk;
    Robot& robot = *desk.robot;
};

} // namespace tollvane::test
