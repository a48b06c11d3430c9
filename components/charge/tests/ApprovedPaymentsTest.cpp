#include "components/charge/core/ApprovedPayments.h"

#include "components/charge/tests/Shop.h"
#include "components/common/ComponentError.h"
#include "platform/Checksum.h"

#include <gtest/gtest.h>

namespace tollvane::charge {
namespace {

class ApprovedPayments : public ::testing::Test {
protected:
    ApprovedPayments() { shop.settings.settings.testMode = false; }

    std::vector<ApprovedPayment> told(int days = 7) {
        return approvedPayments(shop.files, "logs/ZENDACARD.LOG", shop.clock.now(), days);
    }

    Shop shop;
};

TEST_F(ApprovedPayments, AreToldWithAllThatTheBooksOfTheShopNeed) {
    const std::string id = shop.charged("31.40");
    const auto payments = told();
    ASSERT_EQ(1u, payments.size());
    EXPECT_EQ(id, payments[0].transactionId);
    EXPECT_EQ(Money::fromScaled(314'000), payments[0].amount);
    EXPECT_EQ(shop.service->answer().approvalCode, payments[0].approvalCode);
    EXPECT_EQ("1111", payments[0].lastFour);
    EXPECT_EQ("2026-11-21 09:05:03", payments[0].time);
    EXPECT_EQ(id + "\t314000\t" + payments[0].approvalCode +
                  "\t1111\t2026-11-21 09:05:03\tCHARGE\n",
              shop.service->approvedPayments(7));
}

TEST_F(ApprovedPayments, AreBelowZeroWhenMoneyWentBack) {
    const std::string id = shop.charged("31.40");
    ASSERT_TRUE(shop.refund(id, "10.00"));
    ASSERT_TRUE(shop.voidIt(shop.lastId(), "10.00"));
    const auto payments = told();
    ASSERT_EQ(3u, payments.size());
    EXPECT_EQ(Money::fromUnits(-10), payments[1].amount);
    EXPECT_EQ(Operation::Refund, payments[1].operation);
    EXPECT_EQ(Money::fromUnits(-10), payments[2].amount);
    EXPECT_EQ("", payments[2].lastFour);
}

TEST_F(ApprovedPayments, AreNeitherDeclinesNorTestsNorSignIns) {
    shop.service->signIn("Mary Smith");
    shop.charge("7002.20");
    shop.charge("7004.80");
    shop.settings.settings.testMode = true;
    ASSERT_TRUE(shop.charge("5.00"));
    EXPECT_TRUE(told().empty());
}

TEST_F(ApprovedPayments, IncludeOneThatWasFoundOutAfterAnInterruption) {
    EXPECT_THROW(shop.charge("7005.03"), com::ComponentError);
    EXPECT_TRUE(told().empty());
    shop.restart();
    EXPECT_EQ(1u, told().size());
}

TEST_F(ApprovedPayments, AreThoseOfTheLastDaysOnly) {
    shop.clock.moment.month = 2;
    shop.clock.moment.day = 27;
    ASSERT_TRUE(shop.charge("1.00"));
    shop.clock.moment.month = 3;
    shop.clock.moment.day = 2;
    ASSERT_TRUE(shop.charge("2.00"));
    EXPECT_EQ(2u, told(3).size());
    ASSERT_EQ(1u, told(2).size());
    EXPECT_EQ(Money::fromUnits(2), told(2)[0].amount);
}

// A line as the log holds it.
std::string checked(const std::string& line) {
    return line + "  #" + checksumText(line) + "\r\n";
}

const std::string whole = "2026-11-21 09:05:03  x  CHARGE  LIVE  1.00  ****1111  APPROVED  1/1/0  "
                          "ABCDEF  1000000001  -  [KEY]  Yes.";

std::string with(const std::string& before, const std::string& after) {
    std::string line = whole;
    return line.replace(line.find(before), before.size(), after);
}

TEST_F(ApprovedPayments, AreNotReadFromLinesThatACrashOrAPersonLeft) {
    EXPECT_EQ(1u, approvedPayments(checked(whole), "2026-11-21").size());
    EXPECT_TRUE(approvedPayments(whole + "\r\n", "").empty());
    EXPECT_TRUE(approvedPayments(checked(whole).substr(0, checked(whole).size() - 2), "").empty());
    EXPECT_TRUE(approvedPayments(whole.substr(0, 95) + "  (interrupted)\r\n", "").empty());
    EXPECT_TRUE(approvedPayments("\r\n  \r\n-\r\n", "").empty());
    EXPECT_TRUE(approvedPayments(checked(with("1.00", "1,00")), "").empty());
    EXPECT_TRUE(approvedPayments(checked(with("1000000001", "-")), "").empty());
    EXPECT_TRUE(approvedPayments(checked(with("CHARGE", "SIGN-IN")), "").empty());
    std::string changed = checked(whole);
    changed[changed.find("1.00")] = '9';
    EXPECT_TRUE(approvedPayments(changed, "").empty()) << "no amount from a damaged line";
}

TEST_F(ApprovedPayments, ThatAreWrittenBelowZeroStayThere) {
    for (const char* type : {"REFUND", "VOID"}) {
        const auto payments = approvedPayments(
            checked(with("CHARGE  LIVE  1.00", std::string(type) + "  LIVE  -1.00")), "");
        ASSERT_EQ(1u, payments.size()) << type;
        EXPECT_EQ(Money::fromUnits(-1), payments[0].amount) << type;
    }
}

TEST_F(ApprovedPayments, OfALongLogAreThoseOfItsEnd) {
    std::string& log = shop.files.contents["logs/ZENDACARD.LOG"];
    while (log.size() < 3u << 20)
        log += checked(whole);
    EXPECT_EQ((1u << 20) / checked(whole).size(), told().size());
}

} // namespace
} // namespace tollvane::charge
