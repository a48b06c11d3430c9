// The order in which the program gets hold of its components and lets go of them, and the texts
// that stand on the form from the first moment.

#include "app/Components.h"
#include "tests/scenarios/Till.h"

#include <memory>
#include <optional>

namespace tollvane::test {
namespace {

constexpr const char* kWindow = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Window";

class FormOnItsOwn : public TillTest {
protected:
    /// Shows a form at 1500, 750 and closes it; returns whether its place was stored.
    bool storesItsPosition(bool skip) {
        const Desktop desktop = till.desktop.desktop();
        Components components(desktop);
        components.CreateComponents();
        EXPECT_FALSE(components.skipPosition) << "it is off unless somebody sets it";
        components.skipPosition = skip;
        ChargeInfo program(desktop, components);
        program.show();
        program.form().move(1500, 750);
        program.form().close();
        EXPECT_FALSE(program.form().isOpen());
        EXPECT_FALSE(components.hasCharge());
        return till.desktop.registry.number(kWindow, "X").has_value() ||
               till.desktop.registry.number(kWindow, "Y").has_value();
    }
};

TEST_F(FormOnItsOwn, StoresItsPosition) {
    EXPECT_TRUE(storesItsPosition(false));
}

TEST_F(FormOnItsOwn, StoresNoPositionWhenThatIsToBeSkipped) {
    EXPECT_FALSE(storesItsPosition(true));
}

TEST_F(FormOnItsOwn, ReadsTheComponentsInItsOrderWhileItInitialises) {
    till.start();

    const std::vector<std::string> calls = till.desktop.record.texts();
    const auto logged = std::find_if(calls.begin(), calls.end(), [](const std::string& call) {
        return call.starts_with("charge.LogLoggedInUser(");
    });
    ASSERT_NE(logged, calls.end());
    std::vector<std::string> read(logged + 1, calls.end());
    std::erase_if(read, [](const std::string& call) { return call.starts_with("field "); });
    const auto field = [](const std::string& name) {
        return "charge.TransactionField(\"" + name + "\")";
    };
    EXPECT_EQ(read, (std::vector<std::string>{
                        field("x_first_name"),  field("x_last_name"),    field("x_card_num"),
                        field("x_card_code"),   field("x_amount"),       field("x_zip"),
                        field("x_zip"),         field("x_tax"),          field("x_auth_code"),
                        field("x_trans_id"),    field("x_address"),      field("x_city"),
                        field("x_email"),       field("x_description"),  field("x_invoice_num"),
                        field("x_po_num"),      "charge.ExpirationDate", "environment.Data_Path",
                        "environment.Location", "charge.TestMode"}));
}

TEST_F(FormOnItsOwn, LetsGoOfTheChargeComponentBeforeTheEnvironment) {
    std::vector<std::string> released;
    const auto watched = [this, &released](const ObjectRef& object, const std::string& name) {
        return [this, &released, object, name] {
            return ObjectRef(object.get(), [this, &released, object, name](AutomationObject*) {
                const bool freed = !till.desktop.record.texts("charge.Free()").empty();
                released.push_back(name + (freed ? " after Free" : " before Free"));
            });
        };
    };
    till.desktop.automation.registerProgId("ZendaSwiftill.Tollvane",
                                           watched(till.desktop.charge.object(), "charge"));
    till.desktop.automation.registerProgId(
        "prjHabitat.clsHabitatI", watched(till.desktop.environment.object(), "environment"));
    till.open();
    EXPECT_EQ(released, std::vector<std::string>()) << "held while the form is open";

    till.press("cmdCancel");

    EXPECT_EQ(released, (std::vector<std::string>{"charge after Free", "environment after Free"}));
}

class StandingTexts : public OpenTillTest {};

TEST_F(StandingTexts, TipsAreThoseOfAChargeWhenTheFormOpens) {
    EXPECT_EQ(till.box("txtAmount").toolTip(), "Enter the amount to be charged.");
    EXPECT_EQ(till.box("txtTransactionNumber").toolTip(),
              "The host transaction number is returned here");
}

TEST_F(StandingTexts, OfTheTaxExplainThemselves) {
    EXPECT_EQ(till.box("txtTaxAmount").toolTip(), "Enter the tax amount (-) if a credit");
    EXPECT_EQ(till.check("chkTaxExempt").caption(), "Tax &Exempt");
    EXPECT_EQ(till.check("chkTaxExempt").toolTip(),
              "Check this box if the transaction is tax exempt");
}

TEST_F(StandingTexts, StatusTextReplacesTheOneBefore) {
    till.program().ShowStatus("Dialling ...");
    till.program().ShowStatus("");
    EXPECT_EQ(till.status(), "");
}

TEST_F(StandingTexts, ErrorsAreShownWithSentenceNumberAndDescription) {
    till.program().DisplayError("There was an error setting the expiration date.",
                                Error(-2147220992, "charge", "Permission denied"));

    EXPECT_EQ(till.boxes(), (std::vector<Message>{information(
                                "", "There was an error setting the expiration date.\r\n\r\n"
                                    "Error: -2147220992, Permission denied")}));
}

class CreatingTheComponents : public TillTest {
protected:
    void expectError(const std::string& description) {
        Components components(till.desktop.desktop());
        std::optional<Error> raised;
        try {
            components.CreateComponents();
        } catch (const Error& error) {
            raised = error;
        }
        ASSERT_TRUE(raised) << "nothing was raised";
        EXPECT_EQ(raised->number(), 1234);
        EXPECT_EQ(raised->source(), "Elsewhere");
        EXPECT_EQ(raised->description(), description);
    }
    static Error failure() { return {1234, "Elsewhere", "Not today."}; }
};

TEST_F(CreatingTheComponents, KeepsNumberAndSourceOfAMissingEnvironment) {
    till.desktop.automation.failNext("prjHabitat.clsHabitatI", failure());
    expectError("Error creating Environment object. Not today.");
}

TEST_F(CreatingTheComponents, KeepsNumberAndSourceOfARefusedCommandLine) {
    till.desktop.program.arguments = "/shop 5";
    till.desktop.record.failNext("environment.INIT", failure());
    expectError("Error setting Environment command line object. Not today.");
}

TEST_F(CreatingTheComponents, KeepsNumberAndSourceOfAMissingChargeComponent) {
    till.desktop.automation.failNext("ZendaSwiftill.Tollvane", failure());
    expectError("Error creating ZendaCard object. Not today.");
}

TEST_F(CreatingTheComponents, IsTheOnlyWayToHaveThem) {
    Components components(till.desktop.desktop());
    EXPECT_FALSE(components.hasCharge());

    for (const auto& ask : {std::function<void()>([&] { components.charge(); }),
                            std::function<void()>([&] { components.environment(); })}) {
        try {
            ask();
            ADD_FAILURE() << "nothing was raised";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 91);
        }
    }
}

TEST_F(CreatingTheComponents, ThatWasGivenUpHalfwayIsUndoneWithoutTheChargeComponent) {
    till.desktop.automation.unregister("ZendaSwiftill.Tollvane");
    Components components(till.desktop.desktop());
    EXPECT_THROW(components.CreateComponents(), Error);
    EXPECT_NO_THROW(components.environment());

    components.ReleaseComponents();

    EXPECT_THROW(components.environment(), Error);
    EXPECT_EQ(till.desktop.charge.freed, 0);
}

class ReadingTheOperator : public CreatingTheComponents,
                           public ::testing::WithParamInterface<const char*> {};

TEST_P(ReadingTheOperator, ThatFailsIsAnAuthorizationError) {
    till.desktop.record.failNext(GetParam(), failure());
    expectError("Authorization error. Not today.");
}

INSTANTIATE_TEST_SUITE_P(At, ReadingTheOperator,
                         ::testing::Values("environment.CurrentUser", "user.Item", "person.First",
                                           "person.Last"),
                         [](const auto& row) {
                             std::string name(row.param);
                             std::erase(name, '.');
                             return name;
                         });

TEST_F(CreatingTheComponents, ShowsTheFailureToReadTheOperatorAtTheStart) {
    till.desktop.record.failNext("environment.CurrentUser", failure());

    till.start();

    EXPECT_EQ(
        till.boxes(),
        (std::vector<Message>{information("", "There was an error loading the application.\r\n\r\n"
                                              "Error: 1234, Authorization error. Not today.")}));
    EXPECT_FALSE(till.isOpen());
}

} // namespace
} // namespace tollvane::test
