#pragma once

#include "tests/proof/faults/FaultyPorts.h"
#include "tests/proof/faults/Sabotage.h"
#include "tests/scenarios/Till.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tollvane::test {

/// A till whose every call goes through the sabotage.
class Rig {
public:
    Rig();

    /// One thing that the operator does; `sentence` is that of the handler at work. Nothing is
    /// done when there is no form to do it in.
    void step(const char* sentence, const std::function<void()>& work);
    /// Plans what is done in the next dialog, which is closed afterwards in any case.
    void inDialog(const char* sentence, const std::function<void(Form& form)>& work);
    void choose(const char* sentence, std::string_view menuItem);
    /// Types into a box of the form.
    void type(std::string_view box, std::string_view text);
    /// A charge that passes every check, written as the locale writes amounts.
    void fillCharge();
    /// Dialogs that never opened leave their plans behind.
    void dropPlans();

    Robot& robot() { return *till.desktop.robot; }

    Sabotage sabotage;
    std::unique_ptr<FaultyPorts> ports;
    Till till;
    std::size_t operationsBefore = 0; ///< gateway operations before the scenario
    int changes = 0;                  ///< of controls, made until its end
};

/// Something that happens at the counter in a day.
struct Scenario {
    const char* name;
    std::function<void(Rig& rig)> prepare; ///< not swept
    std::function<void(Rig& rig)> act;
    bool isStart = false;   ///< `act` starts the program
    bool isRefused = false; ///< and does not get far
    bool isEnd = false;     ///< `act` closes the form
};

void PrintTo(const Scenario& scenario, std::ostream* out);

const std::vector<Scenario>& scenarios();

/// Sentences of the handlers, as the operator reads them.
namespace sentence {
inline constexpr const char* loading = "There was an error loading the application.";
inline constexpr const char* entryFields = "There was an error preparing the entry fields.";
inline constexpr const char* expirations = "There was an error filling the expiration dates.";
inline constexpr const char* dataPath = "There was an error showing the data path.";
inline constexpr const char* companyText = "There was an error showing the company information.";
inline constexpr const char* activating = "There was an error activating the form.";
inline constexpr const char* closing = "There was an error closing the form.";
inline constexpr const char* approval = "There was an error getting an approval.";
inline constexpr const char* amount = "There was an error showing the amount.";
inline constexpr const char* expiry = "There was an error setting the expiration date.";
inline constexpr const char* cardNumber = "There was an error validating the credit card number.";
inline constexpr const char* keyboard = "There was an error reading the keyboard.";
inline constexpr const char* newEntry = "There was an error starting a new entry.";
inline constexpr const char* state = "There was an error populating the state choice box. ";
inline constexpr const char* receipt = "There was an error printing the receipt.";
inline constexpr const char* gateway = "There was an error configuring the gateway.";
} // namespace sentence

} // namespace tollvane::test
