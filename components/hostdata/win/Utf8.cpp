#include "components/hostdata/win/Utf8.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"

namespace tollvane::hostdata {

std::string utf8(std::wstring_view text) {
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), needed, nullptr, nullptr);
    return result;
}

std::wstring wide(std::string_view text) {
    if (text.empty())
        return {};
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), needed);
    return result;
}

std::string utf8(BSTR text) {
    return utf8(com::view(text));
}

Secret takeSecret(BSTR password) {
    struct Wiper {
        BSTR text;
        ~Wiper() { com::wipe(text); }
    };
    const Wiper wiper{password};
    return Secret(utf8(password));
}

void give(BSTR* out, std::string_view text) {
    if (out == nullptr)
        com::throwFailure(E_POINTER);
    *out = nullptr;
    *out = com::Bstr(std::wstring_view(wide(text))).release();
}

} // namespace tollvane::hostdata
