#pragma once

#include "platform/MessageBox.h"

#include <deque>
#include <functional>
#include <iosfwd>
#include <vector>

namespace tollvane {
/// For failure messages of tests.
std::ostream& operator<<(std::ostream& out, const Message& message);
bool operator==(const Message& one, const Message& other);
} // namespace tollvane

namespace tollvane::test {

class FaultPlan;

/// Notes every box and answers it at once. A Yes/No box without a planned answer fails the test
/// (and gets No).
class RecordedMessageBoxes : public MessageBoxes {
public:
    explicit RecordedMessageBoxes(FaultPlan& faults) : faults_(faults) {}

    MessageAnswer show(const Message& message) override;

    /// Plans the answer to the next Yes/No box that has none yet.
    void answer(MessageAnswer answer) { answers_.push_back(answer); }
    /// Planned answers that no box asked for.
    std::size_t openAnswers() const { return answers_.size(); }

    const std::vector<Message>& shown() const { return shown_; }
    /// The last box; fails the test when there was none.
    Message last() const;
    /// The boxes since the last call, and forgets them.
    std::vector<Message> take();

    /// Runs while a box is open, after it was noted: what else happens on the desktop meanwhile.
    std::function<void(const Message& message)> whileOpen;

private:
    FaultPlan& faults_;
    std::deque<MessageAnswer> answers_;
    std::vector<Message> shown_;
};

} // namespace tollvane::test
