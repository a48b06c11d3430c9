#include "components/hostdata/win/SettingsWindow.h"

#include "components/common/ComFailure.h"
#include "components/hostdata/HostDataError.h"
#include "components/hostdata/win/HostDataDialog.h"

#include <windows.h>

#include <objbase.h>
#include <rpc.h>
#include <rpcdcep.h>

#include <exception>
#include <thread>

namespace tollvane::hostdata {

namespace {

DWORD callingProcess() {
    unsigned long process = 0;
    if (I_RpcBindingInqLocalClientPID(nullptr, &process) != RPC_S_OK)
        throw HostDataError(Failure::notAtThisComputer,
                            "The settings of the host data are shown at the computer on which the "
                            "host data server runs.");
    return process;
}

// The window that the person at the client was working in.
HWND windowOf(DWORD process) {
    const HWND front = GetForegroundWindow();
    DWORD owner = 0;
    GetWindowThreadProcessId(front, &owner);
    return owner == process ? front : nullptr;
}

// The system's file dialogs want an apartment of their own.
class DialogApartment {
public:
    DialogApartment() { com::check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    DialogApartment(const DialogApartment&) = delete;
    DialogApartment& operator=(const DialogApartment&) = delete;
    ~DialogApartment() { CoUninitialize(); }
};

} // namespace

void showSettings(const std::string& storePath) {
    const HWND owner = windowOf(callingProcess());
    std::exception_ptr failure;
    std::thread([&] {
        try {
            const DialogApartment apartment;
            HostDataDialog(storePath).run(owner);
        } catch (...) {
            failure = std::current_exception();
        }
    }).join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace tollvane::hostdata
