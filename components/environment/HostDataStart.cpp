#include "components/environment/HostDataStart.h"

#include "components/common/RegistryKey.h"
#include "components/common/ServerSign.h"

#include <windows.h>

#include <string>

namespace tollvane::environment {

namespace {

constexpr const wchar_t* kServer = L"dcZenda32.dcclsZenda32";
constexpr DWORD kPatienceMilliseconds = 5'000;

std::wstring registered(const std::wstring& path, const std::wstring& name = L"") {
    const auto key = com::RegistryKey::openForReading(HKEY_CLASSES_ROOT, path);
    return key ? key.text(name).value_or(L"") : std::wstring();
}

// Empty when the server is not registered here, or is somebody else's to start.
std::wstring commandLine() {
    const std::wstring id = registered(std::wstring(kServer) + L"\\CLSID");
    const std::wstring program = registered(L"CLSID\\" + id + L"\\LocalServer32");
    const std::wstring application = registered(L"CLSID\\" + id, L"AppID");
    const bool hasAccount = !registered(L"AppID\\" + application, L"RunAs").empty();
    return id.empty() || program.empty() || hasAccount ? L"" : program + L" -Embedding";
}

class Process {
public:
    explicit Process(std::wstring command) {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                           &start, &facts_) != FALSE)
            CloseHandle(facts_.hThread);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process() {
        if (facts_.hProcess != nullptr)
            CloseHandle(facts_.hProcess);
    }
    [[nodiscard]] HANDLE handle() const noexcept { return facts_.hProcess; }

private:
    PROCESS_INFORMATION facts_{};
};

// One till of this computer at a time.
class Turn {
public:
    Turn() : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\Norrow.HostData.Start")) {
        WaitForSingleObject(mutex_, kPatienceMilliseconds);
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() {
        ReleaseMutex(mutex_);
        CloseHandle(mutex_);
    }

private:
    HANDLE mutex_;
};

} // namespace

void startHostDataServer(const std::function<void()>& meanwhile) noexcept {
    try {
        const Turn turn;
        const com::ServerSign sign(com::kHostDataSign);
        if (sign.isShown())
            return;
        const std::wstring command = commandLine();
        if (command.empty())
            return;
        const Process server(command);
        if (server.handle() == nullptr)
            return;
        meanwhile();
        sign.await(server.handle(), kPatienceMilliseconds);
    } catch (...) {
        // The system's own way is still open.
        return;
    }
}

} // namespace tollvane::environment
