// Changes of controls fail in turn, which only the in-memory forms can play: nothing escapes a
// handler, and what is left can be worked with.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr long kNumber = 7;
constexpr const char* kTrack = "%B4111111111111111^SMITH/JOHN^2712101000000?";
constexpr int kAPause = 400; // milliseconds, longer than any inside a swipe

std::string failedChange(Till& till, int nth) {
    return "failed change " + std::to_string(nth) + ": " + till.desktop.faults.failedCall();
}

/// The operator can press every button and choose every type.
void expectAllChoices(Till& till) {
    for (const char* button : {"cmdSubmit", "cmdModify", "cmdCancel"}) {
        EXPECT_TRUE(till.button(button).enabled()) << button;
    }
    for (int type = 0; type < 3; ++type) {
        EXPECT_TRUE(till.kind(type).enabled()) << "type " << type;
    }
}

TEST(ControlFaults, OfASubmissionNeverChargeTwiceNorLeaveTheHourglass) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        till.fillCharge();
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.submit();

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE(failedChange(till, nth));
        till.desktop.faults.clear();
        EXPECT_LE(till.operations().size(), 1U);
        EXPECT_EQ(till.form().mousePointer(), MousePointer::standard);
        expectAllChoices(till);
        const bool charged = till.operations().size() == 1;
        EXPECT_EQ(till.program().TransactionApproved(), charged);
        if (charged) {
            EXPECT_EQ(till.focus(), "cmdCancel") << "where Enter or Space charges nothing";
        }
        till.boxes();

        till.submit();
        EXPECT_LE(till.operations().size(), 1U) << "what was approved is not submitted again";
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 50);
}

TEST(ControlFaults, OfARefusalLeaveEveryButtonUsable) {
    sweepFaults([](int nth) {
        Till till;
        till.open();
        till.fillCharge();
        till.desktop.charge.answer(declined(2, 2, "Declined."));
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.submit();

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE(failedChange(till, nth));
        till.desktop.faults.clear();
        till.boxes();
        expectAllChoices(till);
        EXPECT_NE(till.focus(), "");
        return reached;
    });
}

TEST(ControlFaults, OfAnotherTypeLeaveItsFieldsAsTheTypeAsks) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        till.choose(1);
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.choose(0);

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE(failedChange(till, nth));
        till.desktop.faults.clear();
        till.boxes();
        for (const char* field : {"txtCardName", "txtCardNumber", "txtCardCode", "txtAmount",
                                  "txtTaxAmount", "txtBillToStreet", "txtBillToZip"}) {
            EXPECT_TRUE(till.box(field).enabled()) << field;
        }
        for (const char* list : {"cboExpMonth", "cboExpYear", "cboBillToState"}) {
            EXPECT_TRUE(till.list(list).enabled()) << list;
        }
        EXPECT_FALSE(till.box("txtTransactionNumber").enabled());
        return reached;
    });
    EXPECT_GE(failed, 30);
}

TEST(ControlFaults, OfAClosingFormNeverKeepTheComponents) {
    sweepFaults([](int nth) {
        Till till;
        till.open();
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.press("cmdCancel");

        const bool reached = till.desktop.faults.reached();
        till.desktop.faults.clear();
        EXPECT_FALSE(till.isOpen());
        EXPECT_EQ(till.desktop.charge.freed, 1) << "failed change " << nth;
        till.desktop.expectNothingLeftOver();
        return reached;
    });
}

TEST(ControlFaults, OfAFormattedFieldStopNobodyFromTyping) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        till.desktop.robot->click(till.form(), "txtDescription");
        till.desktop.robot->typeText("two chairs");

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE(failedChange(till, nth));
        till.desktop.faults.clear();
        till.boxes();
        EXPECT_EQ(till.text("txtDescription"), "two chairs");
        till.desktop.expectNothingLeftOver();
        return reached;
    });
    EXPECT_GE(failed, 1);
}

TEST(ControlFaults, OfASwipeCostNoKeyOfTheAmountBehindIt) {
    const int failed = sweepFaults([](int nth) {
        Till till;
        till.open();
        test::Robot& hands = *till.desktop.robot;
        hands.click(till.form(), "txtDescription");
        till.desktop.faults.failAt(Port::controls, nth, kNumber);

        hands.typeText(kTrack);
        hands.letTimePass(kAPause);

        const bool reached = till.desktop.faults.reached();
        SCOPED_TRACE(failedChange(till, nth));
        till.desktop.faults.clear();
        till.boxes();
        hands.click(till.form(), "txtAmount");
        till.box("txtAmount").select(0, -1);
        hands.typeText("25.00");
        EXPECT_EQ(till.text("txtAmount"), "25.00");
        const std::string track = till.text("txtMagStripe");
        EXPECT_TRUE(track.empty() || track.starts_with(kTrack)) << "a part of a card was taken";
        return reached;
    });
    EXPECT_GE(failed, 100);
}

TEST(ControlFaults, OfSavedOptionsAreToldAndKeepTheDialogOpen) {
    Till till;
    till.open();
    till.desktop.robot->planModal([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        form.control<Button>("cmdOK").setFocus();
        till.desktop.faults.failAt(Port::controls, 1, kNumber);
        till.desktop.robot->click(form, "cmdOK");
        till.desktop.faults.clear();
        EXPECT_TRUE(form.isOpen());
        EXPECT_TRUE(form.control<Button>("cmdApply").enabled()) << "the changes count as unsaved";
        till.desktop.robot->click(form, "cmdCancel");
    });

    till.desktop.robot->chooseMenu(till.form(), "mnu_POMore");

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text.substr(0, boxes[0].text.find(", ")),
              "There was an error saving the changes.\r\n\r\nError:7");
    EXPECT_TRUE(boxes[0].title.ends_with(":SaveProperties")) << boxes[0].title;
}

} // namespace
} // namespace tollvane::test
