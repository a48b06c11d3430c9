#include "components/charge/shell/SystemParts.h"

#include "components/common/ComFailure.h"
#include "components/common/ComText.h"

#include <windows.h>

#include <objbase.h>

#include <array>
#include <cstring>

namespace tollvane::charge {

namespace {

constexpr std::size_t keyLetters = 20;
constexpr std::uint64_t ticksPerSecond = 10'000'000;
constexpr std::uint64_t secondsFrom1601To1970 = 11'644'473'600;

} // namespace

Moment SystemClock::now() {
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    FileTimeToSystemTime(&time, &universal);
    if (!SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        local = universal;
    const std::uint64_t ticks =
        (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
    return {local.wYear,
            local.wMonth,
            local.wDay,
            local.wHour,
            local.wMinute,
            local.wSecond,
            static_cast<std::int64_t>(ticks / ticksPerSecond - secondsFrom1601To1970)};
}

std::string newOperationKey() {
    std::array<unsigned char, 2 * sizeof(GUID)> bytes{};
    for (std::size_t half = 0; half < 2; ++half) {
        GUID guid{};
        com::check(CoCreateGuid(&guid));
        std::memcpy(bytes.data() + half * sizeof guid, &guid, sizeof guid);
    }
    std::string key;
    for (std::size_t i = 0; i < keyLetters; ++i)
        key += static_cast<char>('A' + bytes[i] % 26);
    return key;
}

std::string computerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
    if (!GetComputerNameW(name, &length))
        return {};
    return com::narrow(std::wstring_view(name, length));
}

} // namespace tollvane::charge
