#include "entry/KeyboardBuffer.h"

#include "entry/Track1.h"

#include <utility>

namespace tollvane {

namespace {

constexpr char kCarriageReturn = '\r';
constexpr std::string_view kHeader = "%B";
/// No reader sends as much: what is longer is no reader's output.
constexpr std::size_t kLongest = 1024;

SecretText withoutReturns(std::string_view text) {
    SecretText kept;
    for (const char character : text) {
        if (character != kCarriageReturn) {
            kept.append(character);
        }
    }
    return kept;
}

} // namespace

KeyboardBuffer::Answer KeyboardBuffer::changed(std::string_view text, std::uint64_t now) {
    if (text.empty()) {
        firstAt_.reset();
        return {};
    }
    if (text.front() != track::startSentinel && text.front() != track::secondStart) {
        pendingKey_ = static_cast<unsigned char>(text.front());
        return emptied();
    }
    Answer answer;
    if (const std::size_t header = text.rfind(kHeader);
        header != 0 && header != std::string_view::npos) {
        // Another swipe: what stands before it was none, or broke off.
        text.remove_prefix(header);
        answer.text = SecretText(text);
        firstAt_.reset();
    }
    if (!firstAt_) {
        firstAt_ = now;
    }
    if (isCompleteTrack1(text)) {
        answer = emptied();
        answer.track1 = SecretText(text);
    } else if (text.size() > kLongest) {
        answer = emptied();
    } else if (now - *firstAt_ > keepingTime) {
        answer = tidied(text);
    }
    return answer;
}

KeyboardBuffer::Answer KeyboardBuffer::timeIsOver(std::string_view text, bool open) {
    return text.empty() ? Answer() : open ? tidied(text) : emptied();
}

KeyboardBuffer::Answer KeyboardBuffer::tidied(std::string_view text) {
    SecretText kept = withoutReturns(text);
    if (kept.empty() || kept.view().back() == track::endSentinel) {
        return emptied();
    }
    Answer answer;
    answer.text = std::move(kept);
    return answer;
}

KeyboardBuffer::Answer KeyboardBuffer::emptied() {
    firstAt_.reset();
    return {.text = SecretText(), .track1 = {}};
}

} // namespace tollvane
