// Readers that pause between their keys, by a clock that nobody has to wait for.

#include "tests/scenarios/FieldsTest.h"

namespace tollvane::test {
namespace {

constexpr const char* kTrack1 =
    "%B6799990100000000019^NOPQRSTUVWXY/ABCDEFGHIJKLM^28021011234567890000000000?";
constexpr const char* kTrack2 = ";6799990100000000019=28021011234567890?";

class SlowReader : public FieldsTest, public ::testing::WithParamInterface<int> {
protected:
    void send(std::string_view keys) {
        for (const char key : keys) {
            type({&key, 1});
            till.desktop.robot->letTimePass(GetParam());
        }
    }
};

TEST_P(SlowReader, IsUnderstoodFromEveryField) {
    for (const char* field : {"txtCardName", "txtCardNumber", "txtAmount", "txtBillToStreet",
                              "txtDescription", "cboExpMonth", "cmdSubmit"}) {
        goTo(field);

        send(std::string(kTrack1) + "7\r" + kTrack2 + "K\r");
        pause();

        EXPECT_EQ(till.text("txtMagStripe"), kTrack1) << field;
        EXPECT_EQ(till.text("txtCardNumber"), "6799990100000000019") << field;
        EXPECT_EQ(till.text("txtCardName"), "ABCDEFGHIJKLM NOPQRSTUVWXY") << field;
        EXPECT_EQ(till.list("cboExpMonth").listIndex(), 1) << field;
        EXPECT_EQ(till.list("cboExpYear").text(), "2028") << field;
        EXPECT_EQ(till.text("txtAmount"), "0.00") << field;
        for (const char* empty : {"txtBillToStreet", "txtEMail", "txtDescription", "txtCardCode"}) {
            EXPECT_EQ(till.text(empty), "") << field;
        }
        EXPECT_EQ(till.focus(), "txtAmount") << field;
    }
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.operations().empty());
}

class ReaderThatBreaksOff : public FieldsTest {};

TEST_F(ReaderThatBreaksOff, LeavesTheNextTrackItsOwnTime) {
    goTo("txtDescription");
    type("%B41");
    till.desktop.robot->letTimePass(2500);
    ASSERT_EQ(till.text("txtKbBuffer"), "");

    type(kTrack2);

    EXPECT_EQ(till.text("txtKbBuffer"), kTrack2) << "kept until its own time is over";
    till.desktop.robot->letTimePass(2500);
    EXPECT_EQ(till.text("txtKbBuffer"), "");
}

class ReaderOfAnyExpiry : public FieldsTest {};

TEST_F(ReaderOfAnyExpiry, IsUnderstoodWithTheLastDigitInIt) {
    goTo("txtDescription");

    type("%B4111111111111111^SMITH/JOHN^2909101000000?");
    pause();

    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 8);
    EXPECT_EQ(till.list("cboExpYear").text(), "2029");
}

class SlowHand : public FieldsTest {};

TEST_F(SlowHand, TypingOnGivesTheBufferNoMoreTime) {
    goTo("txtDescription");
    type(";12");
    till.desktop.robot->letTimePass(1500);
    type("3");
    EXPECT_EQ(till.text("txtKbBuffer"), ";123");

    till.desktop.robot->letTimePass(600);

    EXPECT_EQ(till.text("txtKbBuffer"), "");
    EXPECT_EQ(till.text("txtDescription"), ";123");
}

INSTANTIATE_TEST_SUITE_P(WithMilliseconds, SlowReader, ::testing::Values(0, 1, 4, 12, 20));

} // namespace
} // namespace tollvane::test
