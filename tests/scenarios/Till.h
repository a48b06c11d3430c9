#pragma once

#include "app/Application.h"
#include "tests/desktop/TestDesktop.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::test {

/// A box with the information icon and an OK button.
Message information(const std::string& title, const std::string& text);
/// A box with the question icon and Yes/No buttons.
Message question(const std::string& title, const std::string& text, int defaultButton = 1);

/// Switches of the settings, by the names under which they are stored.
namespace option {
inline constexpr const char* defaultInvoiceNumber = "Options|DefaultInvoiceNumbers";
inline constexpr const char* invoiceNumberForPONumber = "Options|InvoiceNumberForPONumber";
inline constexpr const char* shopAddress = "Options|ShopAddressForBillToAddress";
inline constexpr const char* cardCodeRequired = "Options\\Required Fields|CardCode";
inline constexpr const char* addressRequired = "Options\\Required Fields|BillToAddress";
inline constexpr const char* descriptionRequired = "Options\\Required Fields|Description";
inline constexpr const char* invoiceNumberRequired = "Options\\Required Fields|InvoiceNumber";
inline constexpr const char* poNumberRequired = "Options\\Required Fields|PONumber";
} // namespace option

/// A till: a desktop of its own, the program on it, and an operator who knows the form. The shop's
/// name is stored, so that the start asks nothing; the clock stands at 21 November 2026, 09:05:03.
class Till {
public:
    Till() : Till(std::function<void(TestDesktop&)>()) {}
    /// `prepare` may put other ports in the place of the desktop's before the program gets them.
    explicit Till(const std::function<void(TestDesktop&)>& prepare);

    /// Runs the program's entry point.
    void start();
    /// Ends the program without its doing anything about it, and makes a new one that has not
    /// started yet.
    void restart();
    /// The same, and forgets the calls and boxes of the start.
    void open();
    /// The form was built and is on the screen.
    bool isOpen();

    ChargeInfo& program();
    Form& form();
    TextBox& box(std::string_view name) { return form().control<TextBox>(name); }
    ComboBox& list(std::string_view name) { return form().control<ComboBox>(name); }
    CheckBox& check(std::string_view name) { return form().control<CheckBox>(name); }
    Button& button(std::string_view name) { return form().control<Button>(name); }
    OptionButton& kind(int type) { return form().control<OptionButton>("optTransType", type); }
    std::string text(std::string_view name) { return box(name).text(); }
    std::string status() { return form().control<StatusBar>("sbrStatus").panelText("STATUS"); }
    /// Name of the control that has the focus, empty when there is none.
    std::string focus();

    /// Stores a switch of the settings ("key|name").
    void set(const char* option, bool on);
    /// Stores a text of the company information.
    void setCompany(const std::string& name, const std::string& text);
    void setCompanyLocation(std::uint32_t number);

    void enter(std::string_view box, std::string_view text) { this->box(box).setText(text); }
    /// Chooses month and year of the card's expiry.
    void enterExpiry(int month, int year);
    /// Chooses a state by its letters; an empty text clears the choice.
    void enterState(std::string_view letters);
    void choose(int type) { desktop.robot->click(form(), "optTransType", type); }
    void press(std::string_view button) { desktop.robot->click(form(), button); }
    void submit() { press("cmdSubmit"); }

    /// A charge, refund or void that passes every check.
    void fillCharge();
    void fillRefund();
    void fillVoid();
    /// Submits a charge that is approved.
    void approveCharge();

    /// The boxes since the last look.
    std::vector<Message> boxes() { return desktop.boxes.take(); }
    /// What the program wrote to the charge component and asked it to do, without what it read.
    std::vector<std::string> chargeCalls() const;
    /// The gateway operations that ran, by name.
    std::vector<std::string> operations() const;
    const ChargeOperation& lastOperation() const;
    /// The charge component's property as it stands now.
    std::string held(const std::string& property) const;

    /// Every control that an operator needs after a submission answers, the pointer is the
    /// default one.
    void expectUsable();

    TestDesktop desktop;

private:
    std::unique_ptr<Application> application_;
};

/// A test with a till of its own, which leaves nothing behind.
class TillTest : public ::testing::Test {
protected:
    void TearDown() override { till.desktop.expectNothingLeftOver(); }

    Till till;
};

/// The same with the form open.
class OpenTillTest : public TillTest {
protected:
    void SetUp() override { till.open(); }
};

} // namespace tollvane::test
