// What the two settings dialogs say, and the order in which Tab goes through them.

#include "tests/scenarios/Till.h"

#include <algorithm>
#include <functional>

namespace tollvane::test {
namespace {

struct Row {
    const char* control;
    const char* caption;
    const char* toolTip;
};

class SettingsDialogs : public TillTest {
protected:
    void SetUp() override {
        till.setCompany("State", "NY");
        till.open();
    }
    void inDialog(const char* menu, const std::function<void(Form&)>& work) {
        till.desktop.robot->planModal([&](Form& form) {
            work(form);
            till.desktop.robot->click(form, "cmdCancel");
        });
        till.desktop.robot->chooseMenu(till.form(), menu);
    }

    /// The label that stands right before a control in the form's table.
    static std::string captionBefore(Form& form, std::string_view name) {
        std::string caption;
        for (Control* control : form.controls()) {
            if (control->name() == name) {
                return caption;
            }
            auto* label = dynamic_cast<Label*>(control);
            caption = label == nullptr ? std::string() : label->caption();
        }
        return "no such control";
    }

    /// Names of the controls that Tab visits, from the first one on until it comes round.
    std::vector<std::string> tabOrder(Form& form) {
        std::vector<std::string> visited;
        for (std::string name = focus(form);
             std::find(visited.begin(), visited.end(), name) == visited.end(); name = focus(form)) {
            visited.push_back(name);
            till.desktop.robot->tab();
        }
        return visited;
    }

private:
    static std::string focus(Form& form) {
        const Control* active = form.activeControl();
        return active == nullptr ? std::string() : active->name();
    }
};

TEST_F(SettingsDialogs, CompanyInformationHasItsCaptionsAndToolTips) {
    inDialog("mnu_CompanyInfo", [&](Form& form) {
        for (const Row& row :
             {Row{"txtCompanyName", "Company &Name", "Name to print on receipts"},
              Row{"txtCompanyStreet", "&Street Address", "Street Address to print on receipts"},
              Row{"txtCompanyAddAddr", "A&dditional Address",
                  "Additional address information (PO Box #, Suite #, ect.)"},
              Row{"txtCompanyCity", "&City", "City to print on receipts"},
              Row{"cboState", "State", ""},
              Row{"txtCompanyZip", "&Zip Code", "Phone number to print on receipt"},
              Row{"txtCompanyPhone", "&Phone Number", "Phone number to print on receipt"},
              Row{"txtLocation", "&Loc.", ""}}) {
            EXPECT_EQ(captionBefore(form, row.control), row.caption);
            EXPECT_EQ(form.find(row.control).toolTip(), row.toolTip) << row.control;
        }
        EXPECT_EQ(form.control<Button>("cmdOK").caption(), "OK");
        EXPECT_EQ(form.control<Button>("cmdCancel").caption(), "Cancel");
        EXPECT_EQ(form.control<Button>("cmdApply").caption(), "&Apply");
    });
}

TEST_F(SettingsDialogs, TabGoesThroughTheCompanyInformationInTheOrderOfItsFields) {
    inDialog("mnu_CompanyInfo", [&](Form& form) {
        EXPECT_EQ(tabOrder(form), (std::vector<std::string>{
                                      "txtCompanyName", "txtCompanyStreet", "txtCompanyAddAddr",
                                      "txtCompanyCity", "cboState", "txtCompanyZip",
                                      "txtCompanyPhone", "txtLocation", "cmdOK", "cmdCancel"}));
    });
}

TEST_F(SettingsDialogs, OptionsHaveTheirCaptionsAndToolTips) {
    inDialog("mnu_POMore", [&](Form& form) {
        EXPECT_EQ(form.control<Frame>("Frame3").caption(), "Required Fields");
        EXPECT_EQ(form.control<Frame>("Frame2").caption(), "Automatic Text Formatting");
        EXPECT_EQ(form.control<Frame>("Frame1").caption(), "");
        for (const Row& row :
             {Row{"chkRCardCode", "Card Code",
                  "Require the security code from the back of the credit card? (not required if "
                  "the card is swiped)"},
              Row{"chkRPONumber", "PO Number", "Require a purchase order number?"},
              Row{"chkRDescription", "Description", "Require a description of the transaction?"},
              Row{"chkRInvoiceNum", "Invoice number", "Require an invoice number?"},
              Row{"chkRBillingAddress", "Customer billing address",
                  "Require the customer billing address?"},
              Row{"chkDefaultInvoiceNumber", "Generate a default invoice number", ""},
              Row{"chkInvoiceForPONumber", "Use invoice number for PO number",
                  "Use the invoice number for the PO number when no PO number is specified"},
              Row{"chkShopAddrForBlank", "Use shop's adress for blank address", ""},
              Row{"chkShowRefundVoidWarning", "Show refund/void warning", ""}}) {
            EXPECT_EQ(form.control<CheckBox>(row.control).caption(), row.caption);
            EXPECT_EQ(form.find(row.control).toolTip(), row.toolTip) << row.control;
        }
        int index = 0;
        for (const Row& row : {Row{"", "&None", "Text is entered as typed"},
                               Row{"", "&lower Case", "Text is entered as lower case"},
                               Row{"", "&UPPER Case", "Text is entered as UPPER CASE"},
                               Row{"", "&Proper Case", "Text is entered as Proper Case"}}) {
            auto& button = form.control<OptionButton>("optFormat", index++);
            EXPECT_EQ(button.caption(), row.caption);
            EXPECT_EQ(button.toolTip(), row.toolTip);
        }
    });
}

TEST_F(SettingsDialogs, TabGoesThroughTheOptionsFromFrameToFrame) {
    inDialog("mnu_POMore", [&](Form& form) {
        EXPECT_EQ(tabOrder(form),
                  (std::vector<std::string>{"chkRCardCode", "chkRPONumber", "chkRDescription",
                                            "chkRInvoiceNum", "chkRBillingAddress", "optFormat",
                                            "chkDefaultInvoiceNumber", "chkInvoiceForPONumber",
                                            "chkShopAddrForBlank", "chkShowRefundVoidWarning",
                                            "cmdOK", "cmdCancel"}));
    });
}

} // namespace
} // namespace tollvane::test
