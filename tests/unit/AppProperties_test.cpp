#include "settings/AppProperties.h"
#include "tests/desktop/TestDesktop.h"

#include <gtest/gtest.h>
#include <set>
#include <type_traits>

namespace tollvane::test {
namespace {

const std::string kBase = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane";
const std::string kCompany = kBase + "\\Company Information";
const std::string kOptions = kBase + "\\Options";
const std::string kRequired = kBase + "\\Options\\Required Fields";

/// One setting as the program and the registry know it.
template <class Value>
struct Row {
    using Argument = std::conditional_t<std::is_same_v<Value, std::string>, const Value&, Value>;

    Value get(const AppProperties& settings) const { return (settings.*getter)(); }
    void set(AppProperties& settings, Argument value) const { (settings.*setter)(value); }

    std::string property;
    Value (AppProperties::*getter)() const;
    void (AppProperties::*setter)(Argument);
    std::string key;
    std::string valueName;
    Value missing;
    std::string failure;
};
using TextRow = Row<std::string>;
using NumberRow = Row<std::int32_t>;
using SwitchRow = Row<bool>;

const std::vector<TextRow> kTextRows{
    {"CompanyName", &AppProperties::CompanyName, &AppProperties::SetCompanyName, kCompany, "Name",
     "", "There was an error saving the company name."},
    {"CompanyStreet", &AppProperties::CompanyStreet, &AppProperties::SetCompanyStreet, kCompany,
     "Street", "", "There was an error saving the company street address."},
    {"CompanyAdditionalAddress", &AppProperties::CompanyAdditionalAddress,
     &AppProperties::SetCompanyAdditionalAddress, kCompany, "Additional Address", "",
     "There was an error saving the company addition address."},
    {"CompanyCity", &AppProperties::CompanyCity, &AppProperties::SetCompanyCity, kCompany, "City",
     "", "There was an error saving the company city."},
    {"CompanyState", &AppProperties::CompanyState, &AppProperties::SetCompanyState, kCompany,
     "State", "", "There was an error saving the company state."},
    {"CompanyZip", &AppProperties::CompanyZip, &AppProperties::SetCompanyZip, kCompany, "Zip", "",
     "There was an error saving the company zip code."},
    {"CompanyPhone", &AppProperties::CompanyPhone, &AppProperties::SetCompanyPhone, kCompany,
     "Phone", "", "There was an error saving the company phone."}};

const std::vector<NumberRow> kNumberRows{
    {"CompanyLocation", &AppProperties::CompanyLocation, &AppProperties::SetCompanyLocation,
     kCompany, "Location", 0, "There was an error saving the company location."},
    {"FormatType", &AppProperties::FormatType, &AppProperties::SetFormatType, kOptions,
     "FormatType", 0, "There was an error saving the format type."}};

const std::vector<SwitchRow> kSwitchRows{
    {"DefaultInvoiceNumber", &AppProperties::DefaultInvoiceNumber,
     &AppProperties::SetDefaultInvoiceNumber, kOptions, "DefaultInvoiceNumbers", true,
     "There was an error saving the default invoice number setting."},
    {"InvoiceNumberForPONumber", &AppProperties::InvoiceNumberForPONumber,
     &AppProperties::SetInvoiceNumberForPONumber, kOptions, "InvoiceNumberForPONumber", true,
     "There was an error saving the invoice number for PO number setting."},
    {"ShopAddressForBillToAddress", &AppProperties::ShopAddressForBillToAddress,
     &AppProperties::SetShopAddressForBillToAddress, kOptions, "ShopAddressForBillToAddress", true,
     "There was an error saving the shop address for bill to address setting."},
    {"InvoiceNumberRequired", &AppProperties::InvoiceNumberRequired,
     &AppProperties::SetInvoiceNumberRequired, kRequired, "InvoiceNumber", false,
     "There was an error saving the invoice number required setting."},
    {"PONumberRequired", &AppProperties::PONumberRequired, &AppProperties::SetPONumberRequired,
     kRequired, "PONumber", false, "There was an error saving the PO number required setting."},
    {"CardCodeRequired", &AppProperties::CardCodeRequired, &AppProperties::SetCardCodeRequired,
     kRequired, "CardCode", true, "There was an error saving the card code required setting."},
    {"BillToAddressRequired", &AppProperties::BillToAddressRequired,
     &AppProperties::SetBillToAddressRequired, kRequired, "BillToAddress", false,
     "There was an error saving the bill to address required setting."},
    {"DescriptionRequired", &AppProperties::DescriptionRequired,
     &AppProperties::SetDescriptionRequired, kRequired, "Description", false,
     "There was an error saving the description required setting."},
    {"ShowRefundVoidWarning", &AppProperties::ShowRefundVoidWarning,
     &AppProperties::SetShowRefundVoidWarning, kOptions, "ShowRefundVoidWarning", false,
     "There was an error saving the ShowRefundVoidWarning setting."}};

template <class Value>
std::string nameOf(const testing::TestParamInfo<Row<Value>>& info) {
    return info.param.property;
}

template <class RowType>
class SettingTest : public testing::TestWithParam<RowType> {
protected:
    void TearDown() override { host.expectNothingLeftOver(); }

    const RowType& row() const { return this->GetParam(); }

    /// What the box says after a save that the system refused.
    std::string deniedText() const {
        return row().failure + "\r\n\r\nError: 5, There was an error writing the " + row().key +
               " registry key, access is denied.\r\n";
    }

    void expectBox(const std::string& title, const std::string& text) {
        ASSERT_EQ(host.boxes.shown().size(), 1U);
        const Message box = host.boxes.last();
        EXPECT_EQ(box.title, title);
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.icon, MessageIcon::information);
        EXPECT_EQ(box.buttons, MessageButtons::ok);
        EXPECT_EQ(box.helpFile, "");
    }

    TestDesktop host;
    AppProperties settings{host.desktop()};
};

using TextSettingTest = SettingTest<TextRow>;
using NumberSettingTest = SettingTest<NumberRow>;
using SwitchSettingTest = SettingTest<SwitchRow>;

TEST_P(TextSettingTest, ReadsAsItsDefaultWhenItWasNeverStored) {
    EXPECT_EQ(row().get(settings), row().missing);
}

TEST_P(TextSettingTest, IsStoredAsATextUnderItsKeyAndName) {
    row().set(settings, "Smith & Sons");
    EXPECT_EQ(host.registry.text(row().key, row().valueName), "Smith & Sons");
    EXPECT_EQ(host.registry.callsOf("setValueEx").at(0).size, 12U);
    EXPECT_EQ(row().get(settings), "Smith & Sons");
}

TEST_P(TextSettingTest, IsReadAgainEachTime) {
    host.registry.addString(row().key, row().valueName, "before");
    EXPECT_EQ(row().get(settings), "before");
    host.registry.addString(row().key, row().valueName, "after");
    EXPECT_EQ(row().get(settings), "after");
}

TEST_P(TextSettingTest, CannotBeSavedIsSaidInItsOwnWords) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    row().set(settings, "x");
    expectBox("Tollvane:SaveStringValue", deniedText());
}

TEST_P(TextSettingTest, ThatCannotBeReadRaisesItsErrorUnchanged) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::everything);
    host.registry.addKey(row().key);
    try {
        row().get(settings);
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 5);
        EXPECT_EQ(error.source(), "Tollvane:GetStringValue");
    }
    EXPECT_TRUE(host.boxes.shown().empty());
}

TEST_P(TextSettingTest, ThatIsRefusedWithoutAnErrorIsSilent) {
    host.registry.failNext("setValueEx", registry::accessDenied);
    row().set(settings, "x");
    EXPECT_TRUE(host.boxes.shown().empty());
}

INSTANTIATE_TEST_SUITE_P(AppProperties, TextSettingTest, testing::ValuesIn(kTextRows),
                         nameOf<std::string>);

TEST_P(NumberSettingTest, ReadsAsItsDefaultWhenItWasNeverStored) {
    EXPECT_EQ(row().get(settings), row().missing);
}

TEST_P(NumberSettingTest, IsStoredAsANumberUnderItsKeyAndName) {
    row().set(settings, 3);
    EXPECT_EQ(host.registry.number(row().key, row().valueName), 3U);
    EXPECT_EQ(row().get(settings), 3);
    row().set(settings, -1);
    EXPECT_EQ(row().get(settings), -1);
}

TEST_P(NumberSettingTest, CannotBeSavedIsSaidInItsOwnWords) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    row().set(settings, 1);
    expectBox("Tollvane:SaveNumericValue", deniedText());
}

TEST_P(NumberSettingTest, ThatCannotBeReadIsZero) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::everything);
    EXPECT_EQ(row().get(settings), 0);
}

INSTANTIATE_TEST_SUITE_P(AppProperties, NumberSettingTest, testing::ValuesIn(kNumberRows),
                         nameOf<std::int32_t>);

TEST_P(SwitchSettingTest, ReadsAsItsDefaultWhenItWasNeverStored) {
    EXPECT_EQ(row().get(settings), row().missing);
}

TEST_P(SwitchSettingTest, IsStoredAsAllBitsOrZeroUnderItsKeyAndName) {
    row().set(settings, true);
    EXPECT_EQ(host.registry.number(row().key, row().valueName), 0xFFFFFFFFU);
    EXPECT_TRUE(row().get(settings));
    row().set(settings, false);
    EXPECT_EQ(host.registry.number(row().key, row().valueName), 0U);
    EXPECT_FALSE(row().get(settings));
}

TEST_P(SwitchSettingTest, IsOnForAnyNumberButZero) {
    host.registry.addNumber(row().key, row().valueName, 1);
    EXPECT_TRUE(row().get(settings));
}

TEST_P(SwitchSettingTest, CannotBeSavedIsSaidInItsOwnWords) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    row().set(settings, true);
    expectBox("Tollvane:SaveNumericValue:SaveBooleanValue, Err.Description", deniedText());
}

TEST_P(SwitchSettingTest, ThatCannotBeReadIsOffWhateverItsDefault) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::everything);
    host.registry.addKey(row().key);
    EXPECT_FALSE(row().get(settings));
}

INSTANTIATE_TEST_SUITE_P(AppProperties, SwitchSettingTest, testing::ValuesIn(kSwitchRows),
                         nameOf<bool>);

class Settings : public testing::Test {
protected:
    void TearDown() override { host.expectNothingLeftOver(); }

    TestDesktop host;
    AppProperties settings{host.desktop()};
};

TEST_F(Settings, EachLiesInAPlaceOfItsOwn) {
    std::set<std::string> places;
    for (const TextRow& row : kTextRows) {
        places.insert(row.key + row.valueName);
    }
    for (const NumberRow& row : kNumberRows) {
        places.insert(row.key + row.valueName);
    }
    for (const SwitchRow& row : kSwitchRows) {
        places.insert(row.key + row.valueName);
    }
    EXPECT_EQ(places.size(), 18U);
    for (const TextRow& row : kTextRows) {
        row.set(settings, row.property);
    }
    for (const TextRow& row : kTextRows) {
        EXPECT_EQ(row.get(settings), row.property);
    }
}

TEST_F(Settings, OfAFreshMachineAskForTheCardCodeAndUseDefaultNumbers) {
    EXPECT_EQ(settings.CompanyName(), "");
    EXPECT_EQ(settings.FormatType(), 0);
    EXPECT_EQ(settings.CompanyLocation(), 0);
    EXPECT_TRUE(settings.DefaultInvoiceNumber());
    EXPECT_TRUE(settings.InvoiceNumberForPONumber());
    EXPECT_TRUE(settings.ShopAddressForBillToAddress());
    EXPECT_TRUE(settings.CardCodeRequired());
    EXPECT_FALSE(settings.InvoiceNumberRequired());
    EXPECT_FALSE(settings.PONumberRequired());
    EXPECT_FALSE(settings.BillToAddressRequired());
    EXPECT_FALSE(settings.DescriptionRequired());
    EXPECT_FALSE(settings.ShowRefundVoidWarning());
}

TEST_F(Settings, WrittenByOnePartAreSeenAtOnceByAnother) {
    AppProperties dialog(host.desktop());
    dialog.SetCardCodeRequired(false);
    EXPECT_FALSE(settings.CardCodeRequired());
}

TEST_F(Settings, NeverWrittenReadingThemCreatesNoKey) {
    settings.CompanyName();
    settings.CardCodeRequired();
    settings.GetWindowPosition();
    EXPECT_FALSE(host.registry.hasKey("HKEY_LOCAL_MACHINE\\Software\\Norrow Programs"));
}

TEST_F(Settings, ACompanyNameThatMayNotBeSavedIsReportedWithTheSystemsReason) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    settings.SetCompanyName("Smith & Sons");
    EXPECT_EQ(host.boxes.last().title, "Tollvane:SaveStringValue");
    EXPECT_EQ(host.boxes.last().text,
              "There was an error saving the company name.\r\n\r\nError: 5, There was an error "
              "writing the HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Company "
              "Information registry key, access is denied.\r\n");
}

TEST_F(Settings, NoRegistryFailureLeavesASetter) {
    const int runs = sweepFaults([](int nth) {
        TestDesktop machine;
        AppProperties failing(machine.desktop());
        machine.faults.failAt(Port::registry, nth, registry::accessDenied);
        failing.SetCompanyName("Shop");
        failing.SetFormatType(2);
        failing.SetCardCodeRequired(false);
        failing.SaveWindowPosition(1, 2);
        machine.expectNothingLeftOver();
        return machine.faults.reached();
    });
    EXPECT_EQ(runs, 15); // create, write and close of five values
}

class WindowPositionTest : public Settings {
protected:
    void expectPosition(std::int32_t x, std::int32_t y) {
        const WindowPosition position = settings.GetWindowPosition();
        EXPECT_EQ(position.X, x);
        EXPECT_EQ(position.Y, y);
    }
};

TEST_F(WindowPositionTest, IsZeroWhenItWasNeverStored) {
    expectPosition(0, 0);
}

TEST_F(WindowPositionTest, IsStoredAsTwoNumbersXFirst) {
    settings.SaveWindowPosition(1200, 900);
    const std::string key = kBase + "\\Window";
    EXPECT_EQ(host.registry.number(key, "X"), 1200U);
    EXPECT_EQ(host.registry.number(key, "Y"), 900U);
    EXPECT_EQ(host.registry.callsOf("setValueEx").at(0).subKey, "X");
    expectPosition(1200, 900);
}

TEST_F(WindowPositionTest, BeyondTheScreensWidthComesBackAtTheLeftEdge) {
    host.screen.width = 15'360;
    settings.SaveWindowPosition(20'000, 900);
    expectPosition(0, 900);
}

TEST_F(WindowPositionTest, BeyondTheScreensHeightComesBackAtTheTop) {
    host.screen.height = 11'520;
    settings.SaveWindowPosition(1200, 11'521);
    expectPosition(1200, 0);
}

TEST_F(WindowPositionTest, AtTheScreensVeryEndIsKept) {
    settings.SaveWindowPosition(host.screen.width, host.screen.height);
    expectPosition(host.screen.width, host.screen.height);
}

TEST_F(WindowPositionTest, LeftOfTheScreenIsKept) {
    settings.SaveWindowPosition(-300, -20);
    expectPosition(-300, -20);
}

TEST_F(WindowPositionTest, ThatCannotBeSavedIsSilent) {
    host.registry.deny("HKEY_LOCAL_MACHINE\\Software", registry::anyWrite);
    settings.SaveWindowPosition(1200, 900);
    EXPECT_TRUE(host.boxes.shown().empty());
    expectPosition(0, 0);
}

} // namespace
} // namespace tollvane::test
