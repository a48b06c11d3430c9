#include "tests/journeys/probe/Typing.h"

#include <windows.h>

namespace tollvane::probe {

namespace {

UINT send(wchar_t letter, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = letter;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    return SendInput(1, &input, sizeof input);
}

} // namespace

long long typeText(std::wstring_view text) {
    long long taken = 0;
    for (const wchar_t letter : text) {
        taken += send(letter, 0);
        send(letter, KEYEVENTF_KEYUP);
    }
    return taken;
}

} // namespace tollvane::probe
