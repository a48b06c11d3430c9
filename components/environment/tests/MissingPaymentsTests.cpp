#include "components/environment/MissingPayments.h"

#include <gtest/gtest.h>

namespace tollvane::environment {
namespace {

const std::wstring first = L"1000000001\t314000\tA1B2C3\t1881\t2026-11-21 09:05:03\tCHARGE\n";
const std::wstring second = L"1000000002\t-50000\tD4E5F6\t\t2026-11-21 09:07:00\tVOID\n";

TEST(MissingPayments, ArePaymentsThatWereApprovedAndNotStored) {
    const auto missing = missingPayments(first + second, L"1000000002\t-50000\n");
    ASSERT_EQ(missing.size(), 1u);
    const MissingPayment expected{L"1000000001",          314'000,  L"A1B2C3", L"1881",
                                  L"2026-11-21 09:05:03", L"CHARGE"};
    EXPECT_EQ(missing.front(), expected);
}

TEST(MissingPayments, AreNoneWhenEveryOneIsStored) {
    EXPECT_TRUE(
        missingPayments(first + second, L"1000000002\t-50000\n1000000001\t314000\n").empty());
    EXPECT_TRUE(missingPayments(L"", L"1000000002\t-50000\n").empty());
}

TEST(MissingPayments, IncludeOneThatIsStoredWithAnotherAmountOnly) {
    // A void may go by the number of the charge that it takes back.
    EXPECT_EQ(missingPayments(first, L"1000000001\t-314000\n").size(), 1u);
}

TEST(MissingPayments, PassOverLinesThatNobodyUnderstands) {
    EXPECT_TRUE(missingPayments(L"\n1\n2\tx\ta\tb\tc\td\n\t5\ta\tb\tc\td\n", L"").empty());
    EXPECT_TRUE(missingPayments(L"7\t99999999999999999999\ta\tb\tc\td\n", L"").empty());
    EXPECT_EQ(missingPayments(first, L"1000000001\n1000000001\t\nx\t314000\t9\n").size(), 1u);
}

TEST(MissingPayments, KeepAnEmptyValueInItsPlace) {
    const auto missing = missingPayments(second, L"");
    ASSERT_EQ(missing.size(), 1u);
    EXPECT_EQ(missing.front().lastFour, L"");
    EXPECT_EQ(missing.front().type, L"VOID");
}

} // namespace
} // namespace tollvane::environment
