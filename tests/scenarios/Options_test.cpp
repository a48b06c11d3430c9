// The options dialog, opened from the menu.

#include "dialogs/frmOptions.h"
#include "settings/AppProperties.h"
#include "tests/scenarios/Till.h"

#include <algorithm>
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
    /// The values that were read last, by their names.
    std::vector<std::string> lastRead(std::size_t count) const {
        std::vector<std::string> names;
        for (const RegistryCall& call : till.desktop.registry.callsOf("queryValueEx")) {
            if (names.empty() || names.back() != call.subKey) {
                names.push_back(call.subKey);
            }
        }
        names.erase(names.begin(),
                    names.end() - static_cast<std::ptrdiff_t>(std::min(count, names.size())));
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

TEST_F(Options, AppliedAndThenClosedWithOkAreWrittenOnce) {
    till.desktop.registry.forgetCalls();

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRDescription");
        EXPECT_TRUE(form.control<Button>("cmdApply").enabled());
        till.desktop.robot->click(form, "cmdApply");
        EXPECT_TRUE(form.isOpen());
        EXPECT_FALSE(form.control<Button>("cmdApply").enabled());
        EXPECT_EQ(written().size(), 10U);
        till.desktop.robot->click(form, "cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    EXPECT_EQ(written().size(), 10U);
    EXPECT_TRUE(stored().DescriptionRequired());
}

TEST_F(Options, AreReadAndWrittenInTheirOrder) {
    inDialog([&](Form& form) { // so that every one is there
        till.desktop.robot->click(form, "chkRDescription");
        till.desktop.robot->click(form, "cmdOK");
    });
    till.desktop.registry.forgetCalls();

    inDialog([&](Form& form) {
        EXPECT_EQ(lastRead(10),
                  (std::vector<std::string>{"InvoiceNumberForPONumber", "DefaultInvoiceNumbers",
                                            "ShopAddressForBillToAddress", "ShowRefundVoidWarning",
                                            "FormatType", "BillToAddress", "CardCode",
                                            "InvoiceNumber", "PONumber", "Description"}));
        till.desktop.robot->click(form, "chkRDescription");
        till.desktop.robot->click(form, "cmdOK");
    });

    EXPECT_EQ(written(),
              (std::vector<std::string>{"InvoiceNumberForPONumber", "DefaultInvoiceNumbers",
                                        "ShopAddressForBillToAddress", "ShowRefundVoidWarning",
                                        "FormatType", "BillToAddress", "CardCode", "InvoiceNumber",
                                        "PONumber", "Description"}));
}

TEST_F(Options, EveryBoxAndEveryFormatMakesApplyAvailable) {
    std::vector<std::pair<const char*, int>> controls{{"chkRCardCode", -1},
                                                      {"chkRPONumber", -1},
                                                      {"chkRDescription", -1},
                                                      {"chkRInvoiceNum", -1},
                                                      {"chkRBillingAddress", -1},
                                                      {"chkDefaultInvoiceNumber", -1},
                                                      {"chkInvoiceForPONumber", -1},
                                                      {"chkShopAddrForBlank", -1},
                                                      {"chkShowRefundVoidWarning", -1}};
    for (int format = 0; format < 4; ++format) {
        controls.emplace_back("optFormat", format);
    }
    for (const auto& control : controls) {
        inDialog([&](Form& form) {
            const auto& [name, index] = control;
            EXPECT_FALSE(form.control<Button>("cmdApply").enabled()) << name;
            till.desktop.robot->click(form, name, index);
            EXPECT_TRUE(form.control<Button>("cmdApply").enabled()) << name << index;
        });
    }
}

TEST_F(Options, EveryBoxIsStoredInItsOwnSetting) {
    const std::vector<std::pair<const char*, bool (AppProperties::*)() const>> boxes{
        {"chkRCardCode", &AppProperties::CardCodeRequired},
        {"chkRPONumber", &AppProperties::PONumberRequired},
        {"chkRDescription", &AppProperties::DescriptionRequired},
        {"chkRInvoiceNum", &AppProperties::InvoiceNumberRequired},
        {"chkRBillingAddress", &AppProperties::BillToAddressRequired},
        {"chkDefaultInvoiceNumber", &AppProperties::DefaultInvoiceNumber},
        {"chkInvoiceForPONumber", &AppProperties::InvoiceNumberForPONumber},
        {"chkShopAddrForBlank", &AppProperties::ShopAddressForBillToAddress},
        {"chkShowRefundVoidWarning", &AppProperties::ShowRefundVoidWarning}};
    for (const auto& changed : boxes) {
        std::vector<bool> before;
        for (const auto& box : boxes) {
            before.push_back((stored().*box.second)());
        }
        inDialog([&](Form& form) {
            till.desktop.robot->click(form, changed.first);
            till.desktop.robot->click(form, "cmdOK");
        });
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            const bool isIt = boxes[i].first == changed.first;
            EXPECT_EQ((stored().*boxes[i].second)(), isIt ? !before[i] : before[i])
                << changed.first << " changed, " << boxes[i].first << " stored";
        }
    }
}

TEST_F(Options, OfAnEarlierOpeningThatWereNotStoredAreGone) {
    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->click(form, "cmdCancel");
    });

    inDialog([&](Form& form) {
        EXPECT_FALSE(form.control<CheckBox>("chkRPONumber").checked());
        EXPECT_FALSE(form.control<Button>("cmdApply").enabled());
    });
}

TEST_F(Options, WithoutTheRightToWriteShowABoxForEachAndTheProgramGoesOn) {
    const std::string key = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane";
    till.desktop.registry.deny(key, registry::anyWrite);

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->click(form, "cmdOK");
        EXPECT_FALSE(form.isOpen());
    });

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 10U);
    EXPECT_EQ(boxes.front().title, "Tollvane:SaveNumericValue:SaveBooleanValue, Err.Description");
    EXPECT_TRUE(boxes.front().text.starts_with(
        "There was an error saving the invoice number for PO number setting.\r\n\r\nError: 5, "
        "There was an error writing the " +
        key + "\\Options registry key, access is denied."))
        << boxes.front().text;
    till.approveCharge();
}

TEST_F(Options, WithoutAnyFormatStoreTheLastOne) {
    stored().SetFormatType(9);

    inDialog([&](Form& form) {
        till.desktop.robot->click(form, "chkRPONumber");
        till.desktop.robot->click(form, "cmdOK");
    });

    EXPECT_EQ(stored().FormatType(), 3);
}

TEST_F(Options, OfAFormatThatDoesNotExistShowNone) {
    for (const std::int32_t stranger : {-1, 4}) {
        stored().SetFormatType(stranger);
        inDialog([&](Form& form) {
            for (int format = 0; format < 4; ++format) {
                EXPECT_FALSE(form.control<OptionButton>("optFormat", format).selected())
                    << stranger;
            }
        });
    }
}

TEST_F(Options, AreStoredWithoutAnybodyWhoWantsToKnow) {
    frmOptions dialog(till.desktop.desktop());
    till.desktop.robot->planModal([&](Form& form) {
        till.desktop.robot->click(form, "chkRDescription");
        EXPECT_TRUE(dialog.SaveProperties());
        EXPECT_FALSE(dialog.Changed());
        form.close();
    });

    dialog.showModal(till.form());

    EXPECT_TRUE(stored().DescriptionRequired());
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
