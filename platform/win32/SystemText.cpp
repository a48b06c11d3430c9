#include "platform/win32/SystemText.h"

#include <array>

namespace tollvane::win32 {

std::string systemText(DWORD code) {
    std::array<char, 1024> buffer{};
    DWORD length =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                       buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    while (length > 0 && (buffer[length - 1] == '\r' || buffer[length - 1] == '\n')) {
        --length;
    }
    return {buffer.data(), length};
}

Error lastSystemError(std::string_view routine) {
    const DWORD code = GetLastError();
    return {static_cast<long>(code), std::string(routine), systemText(code)};
}

std::wstring widened(std::string_view text) {
    const int given = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, text.data(), given, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), given, wide.data(), needed);
    return wide;
}

std::string narrowed(std::wstring_view text) {
    const int given = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, 0, text.data(), given, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), given, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

} // namespace tollvane::win32
