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

TEST(MissingPayments, PassOverAnAmountThatIsNoWholeNumber) {
    const auto approved = [](const std::wstring& amount) {
        return L"1000000001\t" + amount + L"\tA1B2C3\t1881\t2026-11-21 09:05:03\tCHARGE\n";
    };
    for (const wchar_t* amount : {L"", L"-", L"12.5", L"12:5", L"--5", L"+5", L" 5"})
        EXPECT_TRUE(missingPayments(approved(amount), L"").empty()) << amount;
    EXPECT_EQ(missingPayments(approved(L"314000"), L"1000000001\t31400/\n").size(), 1u);
}

TEST(MissingPayments, TellAmountsOfEveryDigitAndUpToTheLongest) {
    const std::wstring head = L"1000000001\t";
    const std::wstring tail = L"\tA1B2C3\t1881\t2026-11-21 09:05:03\tCHARGE\n";
    const auto amountOf = [&](const std::wstring& text) {
        const auto missing = missingPayments(head + text + tail, L"");
        return missing.size() == 1 ? missing.front().amount : -1;
    };
    EXPECT_EQ(amountOf(L"0"), 0);
    EXPECT_EQ(amountOf(L"1234567890"), 1'234'567'890);
    EXPECT_EQ(amountOf(L"-9"), -9);
    EXPECT_EQ(amountOf(L"999999999999999999"), 999'999'999'999'999'999);
    EXPECT_EQ(amountOf(L"-99999999999999999"), -99'999'999'999'999'999);
    EXPECT_EQ(amountOf(L"1000000000000000000"), -1);
}

TEST(MissingPayments, ComeInTheirOrderAndOnceForEachLine) {
    const auto missing = missingPayments(second + first + second, L"");
    ASSERT_EQ(missing.size(), 3u);
    EXPECT_EQ(missing[0].transaction, L"1000000002");
    EXPECT_EQ(missing[1].transaction, L"1000000001");
    EXPECT_EQ(missing[2].transaction, L"1000000002");
}

TEST(MissingPayments, AreToldWithoutTheEndOfTheLastLine) {
    const std::wstring whole = first + second;
    EXPECT_EQ(missingPayments(whole.substr(0, whole.size() - 1), L"").size(), 2u);
    EXPECT_TRUE(missingPayments(first, L"1000000001\t314000").empty());
}

TEST(MissingPayments, KeepAnEmptyValueInItsPlace) {
    const auto missing = missingPayments(second, L"");
    ASSERT_EQ(missing.size(), 1u);
    EXPECT_EQ(missing.front().lastFour, L"");
    EXPECT_EQ(missing.front().type, L"VOID");
}

TEST(MissingPayments, AreLookedForAWeekBackAndInADayMoreOfRecords) {
    std::vector<std::int32_t> asked;
    const auto list = [&](const std::wstring& text) {
        return [&asked, text](std::int32_t days) {
            asked.push_back(days);
            return text;
        };
    };
    EXPECT_EQ(missingOfTheWeek(list(first + second), list(L"1000000001\t314000\n")).size(), 1u);
    EXPECT_EQ(asked, (std::vector<std::int32_t>{7, 8}));
    asked.clear();
    EXPECT_TRUE(missingOfTheWeek(list(L""), list(L"")).empty());
    EXPECT_EQ(asked, std::vector<std::int32_t>{7}) << "nothing was approved: no need to ask more";
}

TEST(MissingPayments, AreNoneWhenMoreIsStoredThanIsListed) {
    const auto approved = [](std::int32_t) { return first; };
    const auto stored = [](int lines) {
        return [lines](std::int32_t) {
            std::wstring text;
            for (int i = 0; i < lines; ++i)
                text += L"7\t1\n";
            return text;
        };
    };
    EXPECT_EQ(missingOfTheWeek(approved, stored(49'999)).size(), 1u);
    EXPECT_TRUE(missingOfTheWeek(approved, stored(50'000)).empty());
}

TEST(MissingPayments, AreRecordedAsTheyWouldHaveBeen) {
    const auto missing = missingPayments(first + second, L"");
    ASSERT_EQ(missing.size(), 2u);
    const std::vector<RecordValue> charge{{L"Account", L"****1881"},
                                          {L"Amount", std::int64_t{314'000}},
                                          {L"Approval", L"A1B2C3"},
                                          {L"PaidBy", L"Charge"},
                                          {L"TransID", L"1000000001"}};
    const std::vector<RecordValue> voided{{L"Amount", std::int64_t{-50'000}},
                                          {L"Approval", L"VOID"},
                                          {L"PaidBy", L"Charge"},
                                          {L"TransID", L"1000000002"}};
    EXPECT_EQ(recordOf(missing[0]), charge);
    EXPECT_EQ(recordOf(missing[1]), voided);
}

} // namespace
} // namespace tollvane::environment
