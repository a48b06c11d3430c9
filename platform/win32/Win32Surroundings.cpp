#include "platform/win32/Win32Surroundings.h"

#include "platform/win32/Dpi.h"

#include <windows.h>

namespace tollvane::win32 {

std::uint32_t Win32Locale::systemDefault() {
    return GetSystemDefaultLCID();
}

std::uint32_t Win32Locale::userDefault() {
    return GetUserDefaultLCID();
}

int Win32Locale::info(std::uint32_t locale, std::uint32_t item, char* buffer, int size) {
    // In the code page of the process, which is the one that the program's texts are in.
    return GetLocaleInfoA(locale, item | LOCALE_USE_CP_ACP, buffer, size);
}

DateTime Win32Clock::now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

std::uint64_t Win32Clock::milliseconds() {
    return GetTickCount64();
}

int Win32Screen::widthInTwips() {
    return twipsFromPixels(GetSystemMetrics(SM_CXSCREEN), systemDpi());
}

int Win32Screen::heightInTwips() {
    return twipsFromPixels(GetSystemMetrics(SM_CYSCREEN), systemDpi());
}

bool Win32Mouse::leftButtonDown() {
    // The key state names physical buttons; for a left-handed mouse the left one is the right.
    const int button = GetSystemMetrics(SM_SWAPBUTTON) ? VK_RBUTTON : VK_LBUTTON;
    return GetAsyncKeyState(button) < 0;
}

void Win32RandomNumbers::seedFromClock() {
    engine_.seed(static_cast<std::minstd_rand::result_type>(GetTickCount64()));
}

int Win32RandomNumbers::below(int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(engine_);
}

void Win32Beeper::beep() {
    MessageBeep(MB_OK);
}

} // namespace tollvane::win32
