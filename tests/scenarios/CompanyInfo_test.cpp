// The dialog of the company's information, opened from the first start and from the menu.

#include "dialogs/PatternText.h"
#include "dialogs/frmCompanyInfo.h"
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

    Form* dialog() { return dialog_; }
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
    /// The values that were written since the last look at the registry's calls, by their names.
    std::vector<std::string> written() const {
        std::vector<std::string> names;
        for (const RegistryCall& call : till.desktop.registry.callsOf("setValueEx")) {
            names.push_back(call.subKey);
        }
        return names;
    }

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
        type("txtCompanyStreet", " 1 Main St.  ");
        type("txtCompanyAddAddr", "   Suite 5");
        type("txtCompanyCity", "Springfield ");
        EXPECT_TRUE(canApply());
        press("cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(stored().CompanyName(), "Harbor Books");
    EXPECT_EQ(stored().CompanyStreet(), "1 Main St.");
    EXPECT_EQ(stored().CompanyAdditionalAddress(), "Suite 5");
    EXPECT_EQ(stored().CompanyCity(), "Springfield");
    EXPECT_EQ(till.form().control<Label>("lblCompanyInfo").caption().substr(0, 14),
              "Harbor Books\r\n")
        << "the form shows the new name at once";
}

TEST_F(CompanyInfo, IsStoredFieldByFieldInTheOrderOfTheDialog) {
    inDialog([&](Form& form) {
        type("txtCompanyName", "Harbor Books");
        type("txtCompanyZip", "62701");
        till.desktop.robot->chooseItem(form, "cboState", 16);
        till.desktop.registry.forgetCalls();
        press("cmdOK");
    });

    EXPECT_EQ(written(), (std::vector<std::string>{"Name", "Street", "Additional Address", "City",
                                                   "State", "Zip", "Phone", "Location"}));
    EXPECT_EQ(stored().CompanyState(), "IL");
    EXPECT_EQ(stored().CompanyZip(), "62701");
}

TEST_F(CompanyInfo, WithoutAChangeIsNotStored) {
    inDialog([&](Form& form) {
        till.desktop.registry.forgetCalls();
        press("cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(written(), std::vector<std::string>());
}

TEST_F(CompanyInfo, EveryFieldButZipAndStateMakesApplyAvailable) {
    for (const char* name : {"txtCompanyName", "txtCompanyStreet", "txtCompanyAddAddr",
                             "txtCompanyCity", "txtCompanyPhone", "txtLocation"}) {
        inDialog([&](Form&) {
            EXPECT_FALSE(canApply()) << name;
            type(name, "1");
            EXPECT_TRUE(canApply()) << name;
        });
    }
}

struct Location {
    const char* typed;
    int stored;
};

TEST_F(CompanyInfo, LocationIsStoredAsTheNumberThatItStartsWith) {
    for (const Location& location :
         {Location{"12abc", 12}, Location{"\b", 0}, Location{"abc", 0}, Location{" 7 ", 7},
          Location{"2.6", 3}, Location{"-4", -4}, Location{"2147483647", 2147483647}}) {
        till.setCompanyLocation(99);
        inDialog([&](Form&) {
            type("txtLocation", location.typed);
            press("cmdOK");
        });
        EXPECT_EQ(stored().CompanyLocation(), location.stored) << location.typed;
    }
}

TEST_F(CompanyInfo, LocationThatNoNumberHoldsIsToldAndKeepsTheDialogOpen) {
    inDialog([&](Form& form) {
        type("txtLocation", "99999999999");
        press("cmdOK");
        EXPECT_TRUE(form.isOpen());
        EXPECT_TRUE(canApply());
    });

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", "There was an error saving the company information.\r\n\r\n"
                                    "Error: 6, Overflow")}));
}

TEST_F(CompanyInfo, ErrorOfSavingCarriesTheTrail) {
    frmCompanyInfo dialog(till.desktop.desktop());
    dialog.form().control<TextBox>("txtLocation").setText("99999999999");

    try {
        dialog.SaveChanges();
        FAIL() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 6);
        EXPECT_TRUE(error.source().ends_with(":SaveChanges")) << error.source();
    }
    EXPECT_TRUE(dialog.Dirty());
}

TEST_F(CompanyInfo, WithoutTheRightToWriteShowsABoxForEveryField) {
    const std::string key = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane";
    till.desktop.registry.deny(key, registry::anyWrite);

    inDialog([&](Form& form) {
        type("txtCompanyName", "Harbor Books");
        press("cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 8U);
    EXPECT_EQ(boxes.front().title, "Tollvane:SaveStringValue");
    EXPECT_EQ(boxes.front().icon, MessageIcon::information);
    EXPECT_TRUE(boxes.front().text.starts_with(
        "There was an error saving the company name.\r\n\r\nError: 5, There was an error writing "
        "the " +
        key + "\\Company Information registry key, access is denied."))
        << boxes.front().text;
    EXPECT_EQ(boxes.back().text.substr(0, boxes.back().text.find("\r\n")),
              "There was an error saving the company location.");
    EXPECT_EQ(stored().CompanyName(), "Oak & Elm");
}

TEST_F(CompanyInfo, TextsAreShapedByTheOperatorsFormat) {
    stored().SetFormatType(3);

    inDialog([&](Form&) {
        type("txtCompanyStreet", "12 harbor road");
        EXPECT_EQ(box("txtCompanyStreet").text(), "12 Harbor Road");
    });
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

TEST_F(CompanyInfo, FormattedPhoneNumberIsCountedAsItStands) {
    till.setCompany("Phone", "(800) 555-1234");
    inDialog([&](Form&) {
        till.desktop.robot->click(*dialog(), "txtCompanyPhone");
        leave();
        EXPECT_EQ(box("txtCompanyPhone").text(), "(800) 555-1234") << "a number without extension";
        EXPECT_FALSE(canApply());
    });
    EXPECT_EQ(till.boxes(), std::vector<Message>());

    till.setCompany("Phone", "555-1234");
    inDialog([&](Form&) {
        till.desktop.robot->click(*dialog(), "txtCompanyPhone");
        leave();
        EXPECT_TRUE(box("txtCompanyPhone").hasFocus()) << "eight characters are no number";
    });
    EXPECT_EQ(till.boxes().size(), 1U);
}

TEST_F(CompanyInfo, PhoneNumberOfAnyOtherLengthIsRefused) {
    for (const char* number : {"1", "123456", "123456789"}) {
        inDialog([&](Form&) {
            type("txtCompanyPhone", number);
            leave();
            EXPECT_TRUE(box("txtCompanyPhone").hasFocus()) << number;
            EXPECT_EQ(box("txtCompanyPhone").text(), number);
        });
        EXPECT_EQ(till.boxes().size(), 1U) << number;
    }
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

TEST_F(CompanyInfo, ChosenStateIsNamedAboveTheBoxAndInItsToolTip) {
    inDialog([&](Form& form) {
        auto& name = form.control<Label>("lblStateName");
        auto& states = form.control<ComboBox>("cboState");
        EXPECT_FALSE(name.visible()) << "the stored state is not named";
        till.desktop.robot->chooseItem(form, "cboState", 5);
        EXPECT_TRUE(name.visible());
        EXPECT_EQ(name.caption(), "Califormia");
        EXPECT_EQ(states.toolTip(), "Califormia");
        EXPECT_EQ(name.bounds().top, states.bounds().top - name.bounds().height);
        till.desktop.robot->chooseItem(form, "cboState", 9);
        EXPECT_EQ(name.caption(), "Distrcit of Columbia");
        EXPECT_EQ(states.toolTip(), "Distrcit of Columbia");
    });
}

TEST_F(CompanyInfo, NameOfTheStateIsHiddenAtOnceWhenTheBoxIsLeft) {
    inDialog([&](Form& form) {
        till.desktop.robot->chooseItem(form, "cboState", 5);
        leave();
        EXPECT_FALSE(form.control<Label>("lblStateName").visible());
        EXPECT_FALSE(form.control<Timer>("tmrDisplay").enabled());
    });
}

TEST_F(CompanyInfo, NameOfTheStateIsHiddenWhenItsTimeIsOver) {
    inDialog([&](Form& form) {
        form.control<Timer>("tmrDisplay").setInterval(50);
        till.desktop.robot->chooseItem(form, "cboState", 5);
        till.desktop.robot->letTimePass(80);
        EXPECT_FALSE(form.control<Label>("lblStateName").visible());
    });
}

TEST_F(CompanyInfo, OffersFiftyEightStatesWithTheirNumbers) {
    inDialog([&](Form& form) {
        auto& states = form.control<ComboBox>("cboState");
        ASSERT_EQ(states.count(), 58);
        EXPECT_EQ(states.itemText(0), "AL");
        EXPECT_EQ(states.itemText(57), "WY");
        for (int i = 0; i < 58; ++i) {
            EXPECT_EQ(states.itemData(i), 200 + i);
        }
    });
}

TEST_F(CompanyInfo, StoredStateInSmallLettersIsNoneOfTheListAndKeepsTheDialogShut) {
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
    constexpr std::string_view kLong = "(###) ###-#### Ext. ##########";
    EXPECT_EQ(patternText("80055512341", kLong), "(800) 555-1234 Ext. 1");
    EXPECT_EQ(patternText("(800) 555-1234", kLong), "(800) 555-1234");
    EXPECT_EQ(patternText("(800) 555-1234 Ext. 12", kLong), "(800) 555-1234 Ext. 12");
    EXPECT_EQ(patternText("8005551234123456789012", kLong), "(800) 555-1234 Ext. 1234567890");
    EXPECT_EQ(patternText("call us", kLong), "");
    EXPECT_EQ(patternText("", "#"), "");
}

} // namespace
} // namespace tollvane::test
