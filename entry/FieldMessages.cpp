#include "entry/FieldMessages.h"

namespace tollvane {

bool refuse(MessageBoxes& messageBoxes, Control& field, std::string_view title,
            std::string_view problem, std::string_view remedy) {
    messageBoxes.show({.text = std::string(problem) + "\r\n\r\n" + std::string(remedy),
                       .title = std::string(title)});
    try {
        field.setFocus();
    } catch (...) {
        // A field that cannot be used now leaves the focus where it is.
    }
    return false;
}

bool confirmed(MessageBoxes& messageBoxes, std::string_view title, const std::string& question,
               int defaultButton) {
    return messageBoxes.show({.text = question,
                              .title = std::string(title),
                              .icon = MessageIcon::question,
                              .buttons = MessageButtons::yesNo,
                              .defaultButton = defaultButton}) == MessageAnswer::yes;
}

} // namespace tollvane
