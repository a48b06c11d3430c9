// dcZenda32.exe: registers itself, or serves its clients until the last one is gone.
#include "HostData.h"
#include "components/common/DispatchObject.h"
#include "components/common/ExeServer.h"
#include "components/hostdata/win/FreeThreadedServer.h"
#include "components/hostdata/win/HostDataObject.h"
#include "components/hostdata/win/ServerIdentity.h"
#include "components/hostdata/win/Services.h"

#include <cwctype>
#include <exception>
#include <string>

namespace {

using namespace tollvane;

const com::ServerClass classes[] = {
    {&CLSID_dcclsZenda32, L"dcZenda32.dcclsZenda32", L"Host data server",
     &com::createObject<hostdata::HostDataObject>},
};
const com::ServerClasses server{classes, &LIBID_HostDataLibrary, 1, 0};

std::wstring lowered(const wchar_t* text) {
    std::wstring result = text;
    for (wchar_t& each : result)
        each = static_cast<wchar_t>(std::towlower(each));
    return result;
}

// The first client asks for the operators at once; the store is looked at while it connects.
void openStore() {
    try {
        hostdata::services().store.open();
    } catch (...) {
        // The client's own call tries again, and tells.
    }
}

// At rest the store is free for others: to be copied, moved, or used by the next process.
void closeStore() {
    hostdata::services().store.close();
}

int run(const wchar_t* commandLine) {
    const std::wstring line = lowered(commandLine);
    if (line.find(L"unregserver") != std::wstring::npos) {
        hostdata::unregisterIdentity();
        return com::runServer(server, commandLine);
    }
    if (line.find(L"regserver") != std::wstring::npos) {
        const int result = com::runServer(server, commandLine);
        if (result == 0)
            hostdata::registerIdentity();
        return result;
    }
    hostdata::runFreeThreaded(server, {.onOffer = openStore, .atRest = closeStore});
    return 0;
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    try {
        return run(GetCommandLineW());
    } catch (const std::exception&) {
        return 1; // nobody watches this process: the client learns of it from the system
    }
}
