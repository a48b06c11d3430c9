#pragma once

#include <functional>
#include <string>

namespace tollvane {

enum class MessageIcon { none, information, question, exclamation };
enum class MessageButtons { ok, yesNo };
enum class MessageAnswer { ok, yes, no };

/// What a message box shows. Modal; it pumps messages while it is open.
struct Message {
    std::string text{};
    std::string title{}; ///< empty: the product name
    MessageIcon icon = MessageIcon::information;
    MessageButtons buttons = MessageButtons::ok;
    int defaultButton = 1;  ///< 1 is the first button
    std::string helpFile{}; ///< not empty: a Help button, meant for this file ...
    long helpTopic = 0;     ///< ... at this topic
    /// What the Help button does; the box stays open meanwhile.
    std::function<void(const Message& box)> help{};
};

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual MessageAnswer show(const Message& message) = 0;
};

} // namespace tollvane
