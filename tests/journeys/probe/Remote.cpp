#include "tests/journeys/probe/Remote.h"

#include <algorithm>
#include <vector>

#include <commctrl.h>

namespace tollvane::probe {

namespace {

constexpr UINT patienceMs = 3000;
constexpr std::size_t remoteChars = 1024;

/// Memory in the process that owns a window, for messages that fill a buffer of the caller's.
class RemoteBuffer {
public:
    explicit RemoteBuffer(HWND window) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ, FALSE, processId);
        if (process_ != nullptr) {
            memory_ = VirtualAllocEx(process_, nullptr, remoteChars * sizeof(wchar_t),
                                     MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
        }
    }
    RemoteBuffer(const RemoteBuffer&) = delete;
    RemoteBuffer& operator=(const RemoteBuffer&) = delete;
    ~RemoteBuffer() {
        if (memory_ != nullptr) {
            VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
        }
        if (process_ != nullptr) {
            CloseHandle(process_);
        }
    }

    bool isUsable() const { return memory_ != nullptr; }
    LPARAM address() const { return reinterpret_cast<LPARAM>(memory_); }

    std::wstring read(std::size_t length) const {
        std::wstring text(std::min(length, remoteChars), L'\0');
        SIZE_T taken = 0;
        ReadProcessMemory(process_, memory_, text.data(), text.size() * sizeof(wchar_t), &taken);
        text.resize(std::min(taken / sizeof(wchar_t), text.find(L'\0')));
        return text;
    }

private:
    HANDLE process_ = nullptr;
    void* memory_ = nullptr;
};

} // namespace

std::optional<LRESULT> ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, patienceMs,
                            &answer) == 0) {
        return std::nullopt;
    }
    return static_cast<LRESULT>(answer);
}

std::wstring textOf(HWND window) {
    const auto length = ask(window, WM_GETTEXTLENGTH);
    if (!length || *length <= 0) {
        return {};
    }
    std::vector<wchar_t> buffer(static_cast<std::size_t>(*length) + 1);
    const auto copied =
        ask(window, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    if (!copied || *copied <= 0) {
        return {};
    }
    return {buffer.data(), std::min(static_cast<std::size_t>(*copied), buffer.size() - 1)};
}

std::wstring starsOf(HWND window) {
    const auto length = ask(window, WM_GETTEXTLENGTH).value_or(0);
    return std::wstring(static_cast<std::size_t>(std::max<LRESULT>(length, 0)), L'*');
}

std::wstring controlNameOf(HWND window) {
    static const UINT getControlName = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    const RemoteBuffer buffer(window);
    if (!buffer.isUsable()) {
        return {};
    }
    const auto length = ask(window, getControlName, remoteChars, buffer.address());
    return length && *length > 0 ? buffer.read(static_cast<std::size_t>(*length)) : std::wstring();
}

std::wstring statusPartOf(HWND statusBar, int part) {
    const RemoteBuffer buffer(statusBar);
    const auto length = ask(statusBar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(part));
    if (!buffer.isUsable() || !length || LOWORD(*length) >= remoteChars) {
        return {};
    }
    if (!ask(statusBar, SB_GETTEXTW, static_cast<WPARAM>(part), buffer.address())) {
        return {};
    }
    return buffer.read(LOWORD(*length));
}

} // namespace tollvane::probe
