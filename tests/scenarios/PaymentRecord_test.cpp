// The payment record that an approved transaction leaves in the shop's business data.

#include "tests/scenarios/Till.h"

#include <optional>

namespace tollvane::test {
namespace {

class PaymentRecord : public OpenTillTest {
protected:
    /// Posts what the charge component holds now, as a transaction of the given type.
    bool post(int type = 0) {
        till.program().SetTransType(type);
        return till.program().WriteZendaRecord();
    }
    const PostedPayment& record() {
        if (till.desktop.hostData.posted.empty()) {
            throw std::runtime_error("nothing was posted");
        }
        return till.desktop.hostData.posted.back();
    }
    void hold(const char* property, Variant value) {
        till.desktop.charge.script().setValue(property, std::move(value));
    }
    Variant postedAmount(std::int64_t units, int type) {
        hold("Amount", Money::fromUnits(units));
        post(type);
        return record().value("Amount");
    }
};

TEST_F(PaymentRecord, OfAChargeIsPostedAsItWasApproved) {
    till.fillCharge();

    till.submit();

    ASSERT_EQ(till.desktop.hostData.posted.size(), 1U);
    EXPECT_EQ(record().text("Account"), "************1111");
    EXPECT_EQ(record().value("Amount"), Variant(Money::fromUnits(25)));
    EXPECT_EQ(record().text("Approval"), "A1B2C3");
    EXPECT_EQ(record().text("Expire"), "0327");
    EXPECT_EQ(record().text("PaidBy"), "Charge");
    EXPECT_EQ(record().text("SoldToLast"), "Smith");
    EXPECT_EQ(record().text("Street"), "1 Oak Street");
    EXPECT_EQ(record().text("TransID"), "7001");
    EXPECT_EQ(record().text("Zip"), "62701");
    EXPECT_EQ(record().fields.size(), 9U);
    EXPECT_EQ(till.desktop.hostData.kindsMade, (std::vector<std::int32_t>{17}));
}

TEST_F(PaymentRecord, FieldsAreWrittenInTheirOrder) {
    till.fillCharge();

    till.submit();

    EXPECT_EQ(record().order,
              (std::vector<std::string>{"Account", "Amount", "Approval", "Expire", "PaidBy",
                                        "SoldToLast", "Street", "TransID", "Zip"}));
}

TEST_F(PaymentRecord, IsOpenedAddedAndStoredInThatOrder) {
    till.fillCharge();

    till.submit();

    std::vector<std::string> calls;
    for (const std::string& call : till.desktop.record.texts()) {
        if (call.starts_with("hostdata.") || call.starts_with("payment.Get") ||
            call.starts_with("payment.AddNew") || call.starts_with("payment.Update")) {
            calls.push_back(call);
        }
    }
    EXPECT_EQ(calls, (std::vector<std::string>{"hostdata.SafeCreateObj(17)",
                                               "payment.GetrecbyIDNumber(-1)", "payment.AddNew()",
                                               "payment.Update()"}));
}

TEST_F(PaymentRecord, IsPostedBeforeTheApprovalIsShown) {
    till.fillCharge();
    std::size_t posted = 0;
    till.desktop.boxes.whileOpen = [&](const Message&) {
        posted = till.desktop.hostData.posted.size();
    };

    till.submit();

    EXPECT_EQ(posted, 1U);
}

TEST_F(PaymentRecord, IsNotMadeInTestModeAndTheAnswerIsTrue) {
    till.desktop.charge.testMode = true;

    EXPECT_TRUE(post());

    EXPECT_TRUE(till.desktop.hostData.kindsMade.empty());
    EXPECT_TRUE(till.desktop.hostData.posted.empty());
}

TEST_F(PaymentRecord, PostedAnswersTrue) {
    EXPECT_TRUE(post());
    EXPECT_EQ(till.desktop.hostData.posted.size(), 1U);
}

struct Account {
    const char* what;
    const char* number;
    const char* account; ///< null: not set
};

void PrintTo(const Account& row, std::ostream* out) {
    *out << row.what;
}

class PaymentAccount : public PaymentRecord, public ::testing::WithParamInterface<Account> {};

TEST_P(PaymentAccount, ShowsOnlyTheLastFourCharacters) {
    hold("CardNumber", std::string(GetParam().number));

    post();

    EXPECT_EQ(record().has("Account"), GetParam().account != nullptr);
    if (GetParam().account != nullptr) {
        EXPECT_EQ(record().text("Account"), GetParam().account);
    }
}

INSTANTIATE_TEST_SUITE_P(OfA, PaymentAccount,
                         ::testing::Values(Account{"NumberOfThree", "111", nullptr},
                                           Account{"MissingNumber", "", nullptr},
                                           Account{"NumberOfFour", "1111", "1111"},
                                           Account{"NumberOfFive", "41111", "*1111"},
                                           Account{"WholeNumber", "4111111111111111",
                                                   "************1111"}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(PaymentRecord, AmountOfAChargeKeepsItsSign) {
    EXPECT_EQ(postedAmount(25, 0), Variant(Money::fromUnits(25)));
    EXPECT_EQ(postedAmount(-25, 0), Variant(Money::fromUnits(-25)));
}

TEST_F(PaymentRecord, AmountOfARefundIsNeverPositive) {
    EXPECT_EQ(postedAmount(25, 1), Variant(Money::fromUnits(-25)));
    EXPECT_EQ(postedAmount(-25, 1), Variant(Money::fromUnits(-25)));
    EXPECT_EQ(postedAmount(0, 1), Variant(Money()));
}

TEST_F(PaymentRecord, AmountOfAVoidIsNeverPositive) {
    EXPECT_EQ(postedAmount(25, 2), Variant(Money::fromUnits(-25)));
    EXPECT_EQ(postedAmount(-25, 2), Variant(Money::fromUnits(-25)));
}

TEST_F(PaymentRecord, OfARefundSubmittedAtTheTillIsNegative) {
    till.fillRefund();

    till.submit();

    EXPECT_EQ(record().value("Amount"), Variant(Money::fromUnits(-25)));
    EXPECT_EQ(record().text("Approval"), "A1B2C3");
    EXPECT_EQ(record().text("Account"), "1111");
    EXPECT_FALSE(record().has("Expire")) << "a refund has no expiry";
}

TEST_F(PaymentRecord, OfAVoidCarriesVoidForTheApproval) {
    till.fillVoid();

    till.submit();

    EXPECT_EQ(record().text("Approval"), "VOID");
    EXPECT_EQ(record().value("Amount"), Variant(Money::fromUnits(-25)));
    EXPECT_FALSE(record().has("Account"));
}

TEST_F(PaymentRecord, OfAnotherTypeHasNeitherAmountNorApproval) {
    post(3);

    EXPECT_FALSE(record().has("Amount"));
    EXPECT_FALSE(record().has("Approval"));
    EXPECT_EQ(record().text("PaidBy"), "Charge");
}

struct Expires {
    const char* what;
    const char* date;
    const char* posted; ///< null: not set
};

void PrintTo(const Expires& row, std::ostream* out) {
    *out << row.what;
}

class PaymentExpiry : public PaymentRecord, public ::testing::WithParamInterface<Expires> {};

TEST_P(PaymentExpiry, IsPostedAsMonthAndYear) {
    hold("ExpirationDate", std::string(GetParam().date));

    post();

    EXPECT_EQ(record().has("Expire"), GetParam().posted != nullptr);
    if (GetParam().posted != nullptr) {
        EXPECT_EQ(record().text("Expire"), GetParam().posted);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, PaymentExpiry,
                         ::testing::Values(Expires{"MonthAndYear", "3-2007", "0307"},
                                           Expires{"TwoFigureMonth", "12-2030", "1230"},
                                           Expires{"WholeDate", "3/1/2027", "0327"},
                                           Expires{"Century", "1-2100", "0100"},
                                           Expires{"Nothing", "", nullptr},
                                           Expires{"Words", "soon", nullptr},
                                           Expires{"MonthThirteen", "13-2027", nullptr},
                                           Expires{"MonthNought", "0-2027", nullptr}),
                         [](const auto& row) { return std::string(row.param.what); });

class FailedPosting : public PaymentRecord {
protected:
    std::optional<Error> errorOfPosting() {
        try {
            post();
        } catch (const Error& error) {
            return error;
        }
        return std::nullopt;
    }
};

TEST_F(FailedPosting, OfAnUpdateCarriesTheTrail) {
    till.desktop.record.failNext("payment.Update", Error(-2147217873, "Update", "Duplicate key."));

    const auto error = errorOfPosting();

    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), -2147217873);
    EXPECT_EQ(error->source(), "Update:WriteZendaRecord");
    EXPECT_EQ(error->description(), "Duplicate key.");
    EXPECT_TRUE(till.desktop.hostData.posted.empty());
}

class FailedPostingStep : public FailedPosting,
                          public ::testing::WithParamInterface<const char*> {};

TEST_P(FailedPostingStep, StoresNothingAndCarriesTheTrail) {
    till.desktop.record.failNext(GetParam(), Error(1234, "Elsewhere", "Not today."));

    const auto error = errorOfPosting();

    ASSERT_TRUE(error);
    EXPECT_EQ(error->source(), "Elsewhere:WriteZendaRecord");
    EXPECT_TRUE(till.desktop.hostData.posted.empty());
    EXPECT_TRUE(till.desktop.record.texts("payment.Update").empty());
}

INSTANTIATE_TEST_SUITE_P(At, FailedPostingStep,
                         ::testing::Values("charge.TestMode", "environment.Options",
                                           "options.DCObject", "hostdata.SafeCreateObj",
                                           "payment.GetrecbyIDNumber", "payment.AddNew",
                                           "charge.CardNumber", "payment.Item", "item PaidBy.Value",
                                           "charge.ZipCode", "item Zip.Value"),
                         [](const auto& row) {
                             std::string name(row.param);
                             std::erase_if(name, [](char c) { return c == '.' || c == ' '; });
                             return name;
                         });

TEST_F(FailedPosting, AfterAnApprovalIsReportedAndTheTransactionStaysApproved) {
    till.fillCharge();
    till.desktop.record.failNext("payment.Update", Error(-2147217873, "Update", "Disk is full."));

    till.submit();

    EXPECT_EQ(till.boxes(), (std::vector<Message>{
                                information("", "There was an error getting an approval.\r\n\r\n"
                                                "Error: -2147217873, Disk is full.")}));
    EXPECT_TRUE(till.program().TransactionApproved());
    EXPECT_EQ(till.button("cmdCancel").caption(), "Finished");
    EXPECT_EQ(till.text("txtAuthNum"), "A1B2C3");
    till.expectUsable();

    till.submit();
    EXPECT_EQ(till.operations().size(), 1U) << "the customer is not charged twice";
    EXPECT_EQ(till.boxes().at(0).title, "Transaction Already Authorized");
}

class PaymentObject : public FailedPosting {
protected:
    void SetUp() override {
        FailedPosting::SetUp();
        till.desktop.hostData.script().method(
            "SafeCreateObj", [this](std::vector<Argument>& arguments) -> Variant {
                const ObjectRef payment =
                    asObject(maker_.object()->call("SafeCreateObj", arguments));
                made_ = payment;
                ++count_;
                return payment;
            });
    }
    void expectReleased() {
        EXPECT_EQ(count_, 1);
        EXPECT_TRUE(made_.expired());
    }

private:
    FakeHostData maker_{till.desktop.record};
    std::weak_ptr<AutomationObject> made_;
    int count_ = 0;
};

TEST_F(PaymentObject, IsReleasedOnceItIsStored) {
    EXPECT_TRUE(post());
    expectReleased();
}

TEST_F(PaymentObject, IsReleasedWhenItCannotBeStored) {
    till.desktop.record.failNext("payment.Update", Error(70, "Update", "Disk is full."));
    EXPECT_TRUE(errorOfPosting());
    expectReleased();
}

TEST_F(PaymentObject, IsReleasedWhenAFieldCannotBeSet) {
    till.desktop.record.failNext("item Zip.Value", Error(70, "Item", "Too long."));
    EXPECT_TRUE(errorOfPosting());
    expectReleased();
}

} // namespace
} // namespace tollvane::test
