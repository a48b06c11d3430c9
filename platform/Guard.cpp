#include "platform/Guard.h"

namespace tollvane {

void guarded(MessageBoxes& messageBoxes, std::string_view sentence,
             const std::function<void()>& handler) noexcept {
    try {
        handler();
    } catch (...) {
        const Error error = currentError();
        try {
            messageBoxes.show({.text = failureText(sentence, error)});
        } catch (...) {
            // A box that cannot be shown leaves the operator with the form as it is.
        }
    }
}

} // namespace tollvane
