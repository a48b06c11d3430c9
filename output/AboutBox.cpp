#include "output/AboutBox.h"

#include "platform/Error.h"

#include <string>

namespace tollvane {

namespace {

constexpr const char* kAboutProgId = "Norrow_About.clsAbout";

std::string aboutFailure(const std::string& productName, const Error& error) {
    const std::string sentence =
        "There was an error displaying " + productName + " information.\r\n\r\n";
    if (error.number() == errornumber::cannotCreateObject) {
        return sentence + "Error 429, Unable to create About class.";
    }
    return sentence + "Error: " + std::to_string(error.number()) + ", " + error.description() + ".";
}

} // namespace

void showAbout(const Desktop& desktop, WindowNumber owner) {
    try {
        desktop.automation.create(kAboutProgId)->call("ShowAbout", {{true}, {owner}});
    } catch (...) {
        const Error error = currentError();
        desktop.messageBoxes.show({.text = aboutFailure(desktop.program.productName(), error),
                                   .title = "Unable to Display About"});
    }
}

} // namespace tollvane
