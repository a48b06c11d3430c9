// A password on its way through the server.
#pragma once

#include <string>
#include <string_view>

namespace tollvane::hostdata {

// Overwrites the text in a way that the compiler may not leave out.
inline void wipe(std::string& text) noexcept {
    volatile char* place = text.data();
    for (std::size_t i = 0; i < text.size(); ++i)
        place[i] = 0;
    text.clear();
}

// Holds a password (UTF-8) and overwrites it when done. Has no conversion to a plain string.
class Secret {
public:
    // Copies rather than moves: a moved-from short text keeps its characters.
    explicit Secret(std::string text) : text_(text) { wipe(text); }
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    ~Secret() { wipe(text_); }

    [[nodiscard]] std::string_view view() const noexcept { return text_; }

private:
    std::string text_;
};

} // namespace tollvane::hostdata
