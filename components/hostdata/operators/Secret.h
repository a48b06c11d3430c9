// A password on its way through the server.
#pragma once

#include <string>
#include <string_view>
#include <utility>

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
    explicit Secret(std::string text) : text_(std::move(text)) {}
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;
    Secret(Secret&& other) noexcept : text_(other.text_) { wipe(other.text_); }
    Secret& operator=(Secret&&) = delete;
    ~Secret() { wipe(text_); }

    [[nodiscard]] std::string_view view() const noexcept { return text_; }

private:
    std::string text_;
};

} // namespace tollvane::hostdata
