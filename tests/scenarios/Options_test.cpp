// The options dialog, opened from the menu.

#include "settings/AppProperties.h"
#include "tests/scenarios/Till.h"

#include <functional>

namespace tollvane::test {
namespace {

class Options : public OpenTillTest {
protected:
    /// Opens the dialog from the menu and lets `work` use it.
    void inDialog(std::function<void(Form&)> work) {
        till.desktop.robot->planModal([this, work = std::move(work)](Form& form) {
            work(form);
            if (form.isOpen()) {
                till.desktop.robot->click(form, "cmdCancel");
            }
        });
        till.desktop.robot->chooseMenu(till.form(), "mnu_POMore");
    }

    std::vector<std::string> written() const {
        std::vector<std::string> names;
        for (const RegistryCall& call : till.desktop.registry.calls()) {
            if (call.name == "setValueEx") {
                names.push_back(call.subKey);
            }
        }
        return names;
    }
    AppProperties stored() { return AppProperties(till.desktop.desktop()); }
};

TEST_F(Options, ShowWhatIsStored) {
    stored().SetFormatType(2);
    stored().SetPONumberRequired(true);

    inDialog([&](Form& form) {
        EXPECT_EQ(form.caption(), "Program Options");
        EXPECT_TRUE(form.control<OptionButton>("optFormat", 2).selected());
        EXPECT_TRUE(form.control<CheckBox>("chkRPONumber").checked());
        EXPECT_TRUE(form.control<CheckBox>("chkRCardCode").checked());
        EXPECT_TRUE(form.control<CheckBox>("chkDefaultInvoiceNumber").checked());
        EXPECT_FALSE(form.control<CheckBox>("chkShowRefundVoidWarning").checked());
        EXPECT_FALSE(form.control<Button>("cmdApply").enabled());
    });
}

TEST_F(Options, OpenedAndCancelledWriteNothing) {
    till.desktop.registry.forgetCalls();

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->click(form, "cmdCancel");
    });

    EXPECT_EQ(written(), std::vector<std::string>());
    EXPECT_FALSE(stored().PONumberRequired());
}

TEST_F(Options, AppliedAndClosedWithOkAreWrittenOnceInTheirOrder) {
    till.desktop.registry.forgetCalls();

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRDescription");
        EXPECT_TRUE(form.control<Button>("cmdApply").enabled());
        till.desktop.robot->click(form, "cmdApply");
        EXPECT_TRUE(form.isOpen());
        EXPECT_FALSE(form.control<Button>("cmdApply").enabled());
        till.desktop.robot->click(form, "cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(written(),
              (std::vector<std::string>{"InvoiceNumberForPONumber", "DefaultInvoiceNumbers",
                                        "ShopAddressForBillToAddress", "ShowRefundVoidWarning",
                                        "FormatType", "BillToAddress", "CardCode", "InvoiceNumber",
                                        "PONumber", "Description"}));
    EXPECT_TRUE(stored().DescriptionRequired());
}

TEST_F(Options, WithoutAnyFormatStoreTheLastOne) {
    stored().SetFormatType(9);

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->click(form, "cmdOK");
    });

    EXPECT_EQ(stored().FormatType(), 3);
}

TEST_F(Options, ChosenFormatShapesWhatIsTypedFromThenOn) {
    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "optFormat", 2);
        till.desktop.robot->click(form, "cmdOK");
    });

    till.desktop.robot->click(till.form(), "txtBillToCity");
    till.desktop.robot->typeText("albany");

    EXPECT_EQ(till.text("txtBillToCity"), "ALBANY");
}

TEST_F(Options, EnterSavesAndEscapeCloses) {
    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->typeText("\r");
        EXPECT_FALSE(form.isOpen());
    });
    EXPECT_TRUE(stored().PONumberRequired());

    inDialog([&](Form& form) {
        till.desktop.robot->typeText("\x1b");
        EXPECT_FALSE(form.isOpen());
    });
}

} // namespace
} // namespace tollvane::test
