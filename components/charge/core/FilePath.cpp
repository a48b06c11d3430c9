#include "components/charge/core/FilePath.h"

#include <algorithm>
#include <filesystem>

namespace tollvane::charge {

namespace {

constexpr std::wstring_view separators = L"\\/";
constexpr char32_t lastAscii = 0x7F;
constexpr auto ownSeparator = static_cast<wchar_t>(std::filesystem::path::preferred_separator);

} // namespace

FilePath::FilePath(const char* ascii) : FilePath(std::string_view(ascii)) {}

FilePath::FilePath(std::string_view ascii) : text_(ascii.begin(), ascii.end()) {}

std::string FilePath::plainText() const {
    std::string result(text_.size(), '?');
    std::transform(text_.begin(), text_.end(), result.begin(), [](wchar_t character) {
        return static_cast<char32_t>(character) <= lastAscii ? static_cast<char>(character) : '?';
    });
    return result;
}

FilePath FilePath::folder() const {
    const auto end = text_.find_last_of(separators);
    return end == std::wstring::npos ? FilePath() : FilePath(text_.substr(0, end));
}

FilePath FilePath::name() const {
    const auto end = text_.find_last_of(separators);
    return end == std::wstring::npos ? *this : FilePath(text_.substr(end + 1));
}

FilePath operator/(const FilePath& folder, const FilePath& name) {
    std::wstring text = folder.text_;
    if (!text.empty() && separators.find(text.back()) == std::wstring_view::npos)
        text += ownSeparator;
    return FilePath(text + name.text_);
}

} // namespace tollvane::charge
