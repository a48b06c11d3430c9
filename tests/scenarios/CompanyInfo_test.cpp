// The dialog of the company's information, opened from the first start and from the menu.

#include "dialogs/PatternText.h"
#include "platform/Error.h"
#include "settings/AppProperties.h"
#include "tests/scenarios/Till.h"

#include <functional>

namespace tollvane::test {
namespace {

class CompanyInfo : public TillTest {
protected:
    void SetUp() override {
        till.setCompany("State", "NY");
        till.open();
    }

    /// Opens the dialog from the menu and lets `work` use it.
    void inDialog(std::function<void(Form&)> work) {
        till.desktop.robot->planModal([this, work = std::move(work)](Form& form) {
            dialog_ = &form;
            work(form);
            if (form.isOpen()) {
                press("cmdCancel");
            }
        });
        till.desktop.robot->chooseMenu(till.form(), "mnu_CompanyInfo");
    }

    TextBox& box(std::string_view name) { return dialog_->control<TextBox>(name); }
    void press(std::string_view button) { till.desktop.robot->click(*dialog_, button); }
    bool canApply() { return dialog_->control<Button>("cmdApply").enabled(); }

    /// Types a text into a box, in place of what is there.
    void type(std::string_view name, std::string_view text) {
        till.desktop.robot->click(*dialog_, name);
        box(name).select(0, -1);
        till.desktop.robot->typeText(text);
    }
    void leave() { till.desktop.robot->click(*dialog_, "txtCompanyCity"); }
    AppProperties stored() { return AppProperties(till.desktop.desktop()); }

private:
    Form* dialog_ = nullptr;
};

TEST_F(CompanyInfo, ShowsWhatIsStored) {
    till.setCompany("Name", "Harbor Books");
    till.setCompany("Zip", "62701");
    till.setCompanyLocation(12);

    inDialog([&](Form& form) {
        EXPECT_EQ(form.caption(), "Company Information");
        EXPECT_EQ(box("txtCompanyName").text(), "Harbor Books");
        EXPECT_EQ(box("txtCompanyZip").text(), "62701");
        EXPECT_EQ(box("txtLocation").text(), "12");
        EXPECT_EQ(form.control<ComboBox>("cboState").text(), "NY");
        EXPECT_FALSE(canApply());
    });
}

TEST_F(CompanyInfo, IsStoredTrimmedByOkWhichClosesTheDialog) {
    inDialog([&](Form& form) {
        type("txtCompanyName", "  Harbor Books ");
        type("txtLocation", "12abc");
        EXPECT_TRUE(canApply());
        press("cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(stored().CompanyName(), "Harbor Books");
    EXPECT_EQ(stored().CompanyLocation(), 12);
    EXPECT_EQ(till.form().control<Label>("lblCompanyInfo").caption().substr(0, 14),
              "Harbor Books\r\n");
}

TEST_F(CompanyInfo, EmptyLocationIsStoredAsNought) {
    till.setCompanyLocation(7);

    inDialog([&](Form&) {
        type("txtLocation", "\b");
        press("cmdOK");
    });

    EXPECT_EQ(stored().CompanyLocation(), 0);
}

TEST_F(CompanyInfo, IsStoredByApplyWhichLeavesTheDialogOpen) {
    inDialog([&](Form& form) {
        type("txtCompanyStreet", "1 Main St.");
        press("cmdApply");
        EXPECT_TRUE(form.isOpen());
        EXPECT_FALSE(canApply());
        EXPECT_EQ(stored().CompanyStreet(), "1 Main St.");
    });
}

TEST_F(CompanyInfo, IsNotStoredByCancel) {
    const std::string before = stored().CompanyName();

    inDialog([&](Form&) {
        type("txtCompanyName", "Other");
        press("cmdCancel");
    });

    EXPECT_EQ(stored().CompanyName(), before);
}

TEST_F(CompanyInfo, ZipOrStateChangedAloneLeavesApplyDisabledAndIsNotStored) {
    inDialog([&](Form& form) {
        type("txtCompanyZip", "12345");
        till.desktop.robot->chooseItem(form, "cboState", 0);
        EXPECT_FALSE(canApply());
        press("cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(stored().CompanyZip(), "");
    EXPECT_EQ(stored().CompanyState(), "NY");
}

TEST_F(CompanyInfo, PhoneNumberIsWrittenByItsLength) {
    inDialog([&](Form&) {
        type("txtCompanyPhone", "5551234");
        leave();
        EXPECT_EQ(box("txtCompanyPhone").text(), "555-1234");
        type("txtCompanyPhone", "8005551234");
        leave();
        EXPECT_EQ(box("txtCompanyPhone").text(), "(800) 555-1234");
        type("txtCompanyPhone", "80055512341");
        leave();
        EXPECT_EQ(box("txtCompanyPhone").text(), "(800) 555-1234 Ext. 1");
        type("txtCompanyPhone", "\b");
        leave();
        EXPECT_EQ(box("txtCompanyPhone").text(), "");
    });
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(CompanyInfo, PhoneNumberOfEightDigitsIsRefusedAndKeepsTheFocus) {
    inDialog([&](Form&) {
        type("txtCompanyPhone", "55512345");
        leave();
        EXPECT_TRUE(box("txtCompanyPhone").hasFocus());
        EXPECT_EQ(till.boxes(),
                  (std::vector<Message>{information(
                      "Incorrect Phone Number", "The phone number appears to be incorrect.\r\n\r\n"
                                                "Please correct the phone number to continue.")}));
    });
}

TEST_F(CompanyInfo, NineDigitZipIsDividedAndSixDigitsAreRefused) {
    inDialog([&](Form&) {
        type("txtCompanyZip", "123456789");
        leave();
        EXPECT_EQ(box("txtCompanyZip").text(), "12345-6789");
        type("txtCompanyZip", "123456");
        leave();
        EXPECT_TRUE(box("txtCompanyZip").hasFocus());
        EXPECT_EQ(till.boxes(),
                  (std::vector<Message>{information("Incorrect Zip Code",
                                                    "The zip code appears to be incorrect.\r\n\r\n"
                                                    "Correct the zip code to continue.")}));
    });
}

TEST_F(CompanyInfo, ChosenStateIsNamedUntilTheBoxIsLeft) {
    inDialog([&](Form& form) {
        auto& name = form.control<Label>("lblStateName");
        till.desktop.robot->chooseItem(form, "cboState", 5);
        EXPECT_TRUE(name.visible());
        EXPECT_EQ(name.caption(), "Califormia");
        EXPECT_EQ(form.find("cboState").toolTip(), "Califormia");
        leave();
        EXPECT_FALSE(name.visible());
    });
}

TEST_F(CompanyInfo, StateThatIsNoneOfTheListKeepsTheDialogShut) {
    till.setCompany("State", "ny");

    till.desktop.robot->chooseMenu(till.form(), "mnu_CompanyInfo");

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", "There was an error opening the company information.\r\n\r\n"
                                    "Error: 380, Invalid property value")}));
}

class FirstStart : public TillTest {
protected:
    void SetUp() override {
        till.setCompany("Name", "");
        till.setCompany("State", "AL");
        till.desktop.boxes.answer(MessageAnswer::yes);
    }
};

TEST_F(FirstStart, AnsweredYesOpensTheCompanyInformationBeforeTheFormIsShown) {
    till.desktop.robot->planModal([&](Form& form) {
        till.desktop.robot->click(form, "txtCompanyName");
        till.desktop.robot->typeText("Harbor Books");
        till.desktop.robot->click(form, "cmdOK");
    });

    till.start();

    ASSERT_TRUE(till.isOpen());
    EXPECT_EQ(till.form().control<Label>("lblCompanyInfo").caption(), "Harbor Books\r\nAL\r\n");
}

TEST_F(FirstStart, AnsweredYesWithoutAStateOfTheListEndsWithTheErrorOfLoading) {
    till.setCompany("State", "");

    till.start();

    EXPECT_FALSE(till.isOpen());
    ASSERT_EQ(till.desktop.boxes.shown().size(), 2U);
    EXPECT_EQ(till.boxes().back(),
              information("", "There was an error loading the application.\r\n\r\n"
                              "Error: 380, Invalid property value"));
}

TEST(PatternText, TakesTheDigitsOfTheTextAndEndsWhereTheyRunOut) {
    EXPECT_EQ(patternText("(800) 555-1234", "(###) ###-#### Ext. ##########"),
              "(800) 555-1234 Ext. ");
    EXPECT_EQ(patternText("", "#"), "");
}

} // namespace
} // namespace tollvane::test
