#include "platform/Guard.h"

namespace tollvane {

void guarded(MessageBoxes& messageBoxes, std::string_view sentence,
             const std::function<void()>& handler) noexcept {
    try {
        handler();
    } catch (...) {
        messageBoxes.show({.text = failureText(sentence, currentError())});
    }
}

} // namespace tollvane
