// What the fuzz targets share: the input as a script of small numbers and texts, and their judge.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

namespace tollvane::test {

/// What is being tried, for the message about a broken promise.
inline std::string& atWork() {
    static std::string words;
    return words;
}

/// Ends the process, which the fuzzer keeps the input for, when a promise is broken.
inline void require(bool holds, std::string_view promise) {
    if (!holds) {
        std::fprintf(stderr, "broken: %.*s; %s\n", static_cast<int>(promise.size()), promise.data(),
                     atWork().c_str());
        std::abort();
    }
}

/// Reads the input from its beginning; zeros and empty texts behind its end.
class Script {
public:
    Script(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    bool atEnd() const { return rest_.empty(); }
    std::size_t next() {
        if (rest_.empty()) {
            return 0;
        }
        const std::size_t byte = rest_.front();
        rest_ = rest_.subspan(1);
        return byte;
    }
    std::size_t nextPair() {
        const std::size_t high = next();
        return high * 256 + next();
    }
    /// Its length comes first.
    std::string nextText() {
        const std::size_t length = next();
        std::string text;
        while (text.size() < length && !atEnd()) {
            text += static_cast<char>(next());
        }
        return text;
    }
    std::string rest() {
        std::string text;
        while (!atEnd()) {
            text += static_cast<char>(next());
        }
        return text;
    }

private:
    std::span<const std::uint8_t> rest_;
};

} // namespace tollvane::test
