#include "components/hostdata/operators/OperatorRules.h"
#include "tests/unit/FreedMemory.h"

#include <gtest/gtest.h>

namespace tollvane::hostdata {
namespace {

TEST(PasswordMemory, OfACheckIsWipedBeforeItIsGivenBack) {
    const Secret password("Counter-One-Of-The-Shop");
    const test::FreedMemory freed("ounter-");

    checkPassword(password, "anna");

    EXPECT_EQ(freed.blocksWithIt(), 0U);
}

} // namespace
} // namespace tollvane::hostdata
