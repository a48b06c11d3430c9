#include "tests/journeys/probe/Crash.h"

namespace tollvane::probe {

DWORD crash(DWORD processId) {
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, processId);
    if (process == nullptr) {
        return GetLastError();
    }
    // It runs when it is there and not before: who makes it would else wait for an answer of the
    // process that it has ended.
    const HANDLE thread =
        CreateRemoteThread(process, nullptr, 0, nullptr, nullptr, CREATE_SUSPENDED, nullptr);
    const DWORD error = thread != nullptr ? 0 : GetLastError();
    if (thread != nullptr) {
        ResumeThread(thread);
        CloseHandle(thread);
    }
    CloseHandle(process);
    return error;
}

} // namespace tollvane::probe
