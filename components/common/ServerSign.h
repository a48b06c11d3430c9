// How a server process tells the others of its session that its classes are on offer. Asking the
// system for an object of a server that does not run yet may take a second, because the system
// looks only that often; who sees the sign first does not wait.
#pragma once

#include <windows.h>

#include <string>

namespace tollvane::com {

class ServerSign {
public:
    // name: of one server; every process that knows it shares the sign. Without the system's
    // consent the sign is never there.
    explicit ServerSign(const std::wstring& name)
        : event_(CreateEventW(nullptr, TRUE, FALSE, (L"Local\\" + name).c_str())) {}
    ServerSign(const ServerSign&) = delete;
    ServerSign& operator=(const ServerSign&) = delete;
    ~ServerSign() {
        if (event_ != nullptr)
            CloseHandle(event_);
    }

    void show() const noexcept { SetEvent(event_); }
    void hide() const noexcept { ResetEvent(event_); }
    [[nodiscard]] bool isShown() const noexcept {
        return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0;
    }
    // Until the sign is there, the process has ended or the time is over.
    void await(HANDLE process, DWORD milliseconds) const noexcept {
        const HANDLE either[] = {event_, process};
        WaitForMultipleObjects(2, either, FALSE, milliseconds);
    }

private:
    HANDLE event_;
};

constexpr const wchar_t* kHostDataSign = L"Norrow.HostData.OnOffer";

} // namespace tollvane::com
