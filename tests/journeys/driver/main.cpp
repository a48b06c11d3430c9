// A till without its window: the same calls on the same components in the same order, through the
// program's own views of them, so that thousands of sales can be made and interrupted.
//
//     till_driver start                a start and an end of the program
//     till_driver sale AMOUNT          the same with one charge between them
//     till_driver restart [AMOUNT]     a start that looks for payments that were not recorded, then
//                                      a sale when an amount is given
//     till_driver sales TILL COUNT     charges and posts COUNT different amounts: those of till 0
//     are
//                                      0.01, 0.02, ..., those of till 1 follow
//     till_driver post NAME COUNT      posts payments NAME-1, NAME-2, ... (no charge)
//     till_driver come-and-go COUNT    connects to the host data server and leaves it at once;
//                                      tells how often it was refused
//
// What happens is printed, a line each.
#include "gateway/ChargeComponent.h"
#include "gateway/Environment.h"
#include "platform/Error.h"
#include "platform/win32/ComHandles.h"
#include "platform/win32/Win32Automation.h"
#include "platform/win32/Win32Surroundings.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

namespace {

using namespace tollvane;

constexpr std::int32_t kPaymentRecord = 17;

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout); // what was said is known also when the process is ended from outside
}

std::string decimalText(int hundredths) {
    char text[16];
    std::snprintf(text, sizeof text, "%d.%02d", hundredths / 100, hundredths % 100);
    return text;
}

class Payment {
public:
    explicit Payment(const ObjectRef& host)
        : record_(asObject(host->call("SafeCreateObj", {{kPaymentRecord}}))) {
        record_->call("GetrecbyIDNumber", {{std::int32_t{-1}}});
        record_->call("AddNew");
    }
    void set(const char* field, Variant value) {
        asObject(record_->get("Item", {{std::string(field)}}))->put("Value", std::move(value));
    }
    void store() { record_->call("Update"); }

private:
    ObjectRef record_;
};

// What the program connects to when it starts.
class Till {
public:
    Till()
        : environmentObject_(automation_.create(std::string(kEnvironmentProgId))),
          environment_(environmentObject_),
          host_(automation_.create(std::string(kHostDataProgId), environment_.DCServer())) {
        environment_.setDCObject(host_);
    }
    Till(const Till&) = delete;
    Till& operator=(const Till&) = delete;

    void sell(const std::string& amount) {
        ChargeComponent charge(automation_.create(std::string(kChargeComponentProgId)), locale_);
        charge.LogLoggedInUser("Olive Trent");
        if (!amount.empty())
            submit(charge, amount);
        charge.Free();
    }

    // No two amounts are alike, for a second charge like a first one is refused as a double.
    void sellMany(int till, int count) {
        ChargeComponent charge(automation_.create(std::string(kChargeComponentProgId)), locale_);
        charge.LogLoggedInUser("Olive Trent");
        for (int i = 1; i <= count; ++i)
            submit(charge, decimalText(till * count + i));
        charge.Free();
    }

    // What is missing is told and recorded before the next sale, as the start offers it.
    void restart(const std::string& amount) {
        const ObjectRef environment = environmentObject_;
        say("missing " + asText(environment->get("MissingPayments")));
        say("recorded " + std::to_string(asInt(environment->call("RecordMissingPayments"))));
        say("left " + asText(environment->get("MissingPayments")));
        sell(amount);
    }

    void post(const std::string& name, int count) {
        for (int i = 1; i <= count; ++i) {
            Payment payment(environment_.DCObject());
            payment.set("Account", std::string("************1881"));
            payment.set("Amount", Money::fromUnits(i));
            payment.set("Approval", std::string("A1B2C3"));
            payment.set("PaidBy", std::string("Charge"));
            payment.set("TransID", name + "-" + std::to_string(i));
            payment.store();
        }
    }

private:
    void submit(ChargeComponent& charge, const std::string& amount);
    void post(ChargeComponent& charge);

    win32::ComApartment com_;
    win32::Win32Automation automation_;
    win32::Win32Locale locale_;
    ObjectRef environmentObject_;
    Environment environment_;
    ObjectRef host_;
};

void Till::submit(ChargeComponent& charge, const std::string& amount) {
    charge.ClearFields();
    charge.SetFirstName("MARY ANN");
    charge.SetLastName("SMITH");
    charge.SetCardNumber(SecretText("4012888888881881"));
    charge.SetExpirationDate("8-2029");
    charge.SetAmount(moneyFromText(amount, MoneyStyle{}));
    charge.SetTax("0.00");
    charge.SetStreetAddress("12 Harbor Road");
    charge.SetZipCode("62701");
    try {
        if (!charge.AuthorizeAndCapture()) {
            say("refused " + charge.ResponseReasonText());
            return;
        }
        say("approved " + charge.TransactionID());
        post(charge);
        say("posted");
    } catch (const Error& error) {
        say("error " + error.description());
    }
}

void Till::post(ChargeComponent& charge) {
    if (charge.TestMode())
        return;
    Payment payment(environment_.DCObject());
    payment.set("Account", charge.CardNumber().masked());
    payment.set("Amount", charge.Amount());
    payment.set("Approval", charge.ApprovalCode());
    payment.set("Expire", std::string("0829"));
    payment.set("PaidBy", std::string("Charge"));
    payment.set("SoldToLast", charge.LastName());
    payment.set("Street", charge.StreetAddress());
    payment.set("TransID", charge.TransactionID());
    payment.set("Zip", charge.ZipCode());
    payment.store();
}

void comeAndGo(int times) {
    int refused = 0;
    for (int left = times; left > 0; --left) {
        try {
            Till();
        } catch (const Error& error) {
            say("refused by " + error.source() + ": " + error.description());
            ++refused;
        }
    }
    say("refused " + std::to_string(refused));
}

void run(std::span<char*> arguments) {
    const std::string what = arguments.size() > 1 ? arguments[1] : "";
    if (what == "start") {
        Till().sell("");
    } else if (what == "restart") {
        Till().restart(arguments.size() == 3 ? arguments[2] : "");
    } else if (what == "sale" && arguments.size() == 3) {
        Till().sell(arguments[2]);
    } else if (what == "sales" && arguments.size() == 4) {
        Till().sellMany(std::atoi(arguments[2]), std::atoi(arguments[3]));
    } else if (what == "post" && arguments.size() == 4) {
        const auto begin = std::chrono::steady_clock::now();
        Till().post(arguments[2], std::atoi(arguments[3]));
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        say("seconds " + std::to_string(time.count()));
    } else if (what == "come-and-go" && arguments.size() == 3) {
        comeAndGo(std::atoi(arguments[2]));
    } else {
        throw Error(errornumber::invalidProcedureCall, "till_driver", "It is not known how.");
    }
    say("ended");
}

} // namespace

int main(int count, char** arguments) {
    try {
        run({arguments, static_cast<std::size_t>(count)});
        return EXIT_SUCCESS;
    } catch (const Error& error) {
        say("error " + error.source() + ": " + error.description());
    } catch (const std::exception& error) {
        say(std::string("error ") + error.what());
    }
    return EXIT_FAILURE;
}
