#include "tests/desktop/RecordedMessageBoxes.h"

#include "tests/desktop/FaultPlan.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace tollvane {

std::ostream& operator<<(std::ostream& out, const Message& message) {
    static constexpr const char* icons[] = {"none", "information", "question", "exclamation"};
    return out << "[" << message.title << "] \"" << message.text << "\" icon "
               << icons[static_cast<int>(message.icon)] << ", "
               << (message.buttons == MessageButtons::ok ? "OK" : "Yes/No") << ", default button "
               << message.defaultButton << ", help \"" << message.helpFile << "\" topic "
               << message.helpTopic;
}

bool operator==(const Message& one, const Message& other) {
    return one.text == other.text && one.title == other.title && one.icon == other.icon &&
           one.buttons == other.buttons && one.defaultButton == other.defaultButton &&
           one.helpFile == other.helpFile && one.helpTopic == other.helpTopic;
}

} // namespace tollvane

namespace tollvane::test {

MessageAnswer RecordedMessageBoxes::show(const Message& message) {
    faults_.hit(Port::messageBoxes, "show");
    shown_.push_back(message);
    if (whileOpen) {
        whileOpen(message);
    }
    if (message.buttons == MessageButtons::ok) {
        return MessageAnswer::ok;
    }
    if (answers_.empty()) {
        ADD_FAILURE() << "nobody planned an answer to " << message;
        return MessageAnswer::no;
    }
    const MessageAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

Message RecordedMessageBoxes::last() const {
    if (shown_.empty()) {
        ADD_FAILURE() << "no message box was shown";
        return {};
    }
    return shown_.back();
}

std::vector<Message> RecordedMessageBoxes::take() {
    return std::exchange(shown_, {});
}

} // namespace tollvane::test
