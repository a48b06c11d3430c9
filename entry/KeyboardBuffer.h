#pragma once

#include "platform/SecretText.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tollvane {

/// Judges the text that the typed characters build up in the form's keyboard buffer: it keeps what
/// may be a reader's output until a whole track 1 is there.
class KeyboardBuffer {
public:
    /// Milliseconds after its first character for which a text is kept as it is.
    static constexpr std::uint64_t keepingTime = 2000;

    struct Answer {
        std::optional<SecretText> text; ///< what the buffer must hold from now on, if changed
        SecretText track1;              ///< a whole track 1, taken out of the buffer
    };

    /// The buffer's text has changed. `now` in milliseconds.
    Answer changed(std::string_view text, std::uint64_t now);
    /// The time for which a text is kept is over. An unfinished text stays while a record is
    /// `open`: being read, or perhaps begun by a start sentinel.
    Answer timeIsOver(std::string_view text, bool open);

    /// The last character that started no track; 0 before the first.
    int pendingKey() const { return pendingKey_; }

private:
    Answer emptied();
    Answer tidied(std::string_view text);

    std::optional<std::uint64_t> firstAt_;
    int pendingKey_ = 0;
};

} // namespace tollvane
