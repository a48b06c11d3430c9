#include "tests/journeys/probe/Crash.h"

namespace tollvane::probe {

DWORD crash(DWORD processId) {
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, processId);
    if (process == nullptr) {
        return GetLastError();
    }
    const HANDLE thread = CreateRemoteThread(process, nullptr, 0, nullptr, nullptr, 0, nullptr);
    const DWORD error = thread != nullptr ? 0 : GetLastError();
    if (thread != nullptr) {
        CloseHandle(thread);
    }
    CloseHandle(process);
    return error;
}

} // namespace tollvane::probe
