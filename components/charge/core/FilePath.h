// The name of a file or folder with its path. The library's own paths convert between the system's
// texts, and their conversions bring all its locales with them: more code than the component has.
#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <utility>

namespace tollvane::charge {

class FilePath {
public:
    FilePath() = default;
    // A name that we give ourselves, in ASCII.
    FilePath(const char* ascii);
    FilePath(std::string_view ascii);
    explicit FilePath(std::wstring text) : text_(std::move(text)) {}

    [[nodiscard]] const std::wstring& native() const noexcept { return text_; }
    [[nodiscard]] const wchar_t* c_str() const noexcept { return text_.c_str(); }
    [[nodiscard]] bool empty() const noexcept { return text_.empty(); }
    // For names of our own: "?" for what is not ASCII.
    [[nodiscard]] std::string plainText() const;
    // All but the last name; empty when there is nothing before it.
    [[nodiscard]] FilePath folder() const;
    // The last name.
    [[nodiscard]] FilePath name() const;

    friend FilePath operator/(const FilePath& folder, const FilePath& name);
    friend bool operator==(const FilePath&, const FilePath&) = default;

private:
    std::wstring text_;
};

} // namespace tollvane::charge
