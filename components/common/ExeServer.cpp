#include "components/common/ExeServer.h"

#include "components/common/ClassFactory.h"
#include "components/common/ComFailure.h"
#include "components/common/ComPtr.h"
#include "components/common/Registration.h"

#include <objbase.h>

#include <cstdio>
#include <cwctype>
#include <string>
#include <vector>

namespace tollvane::com {

namespace {

constexpr UINT idleMessage = WM_APP;
// A client that drops its last object and asks for a new one at once meets the running server; a
// server that nobody ever asks for anything does not stay for good.
constexpr UINT lingerMilliseconds = 2'000;
constexpr UINT firstClientMilliseconds = 60'000;

// The last lock may be given back on any thread of the runtime; the loop's own thread has to end.
DWORD serverThread = 0;

void tellServerThread() {
    PostThreadMessageW(serverThread, idleMessage, 0, 0);
}

bool hasSwitch(std::wstring commandLine, const wchar_t* name) {
    for (wchar_t& each : commandLine)
        each = static_cast<wchar_t>(std::towlower(each));
    return commandLine.find(std::wstring(L"/") + name) != std::wstring::npos ||
           commandLine.find(std::wstring(L"-") + name) != std::wstring::npos;
}

class Apartment {
public:
    Apartment() { check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

// The classes on offer, withdrawn at the end.
class OfferedClasses {
public:
    explicit OfferedClasses(const ServerClasses& server) {
        for (const ServerClass& each : server.classes) {
            const ComPtr<ClassFactory> factory = makeObject<ClassFactory>(each);
            DWORD cookie = 0;
            check(CoRegisterClassObject(*each.classId, factory.get(), CLSCTX_LOCAL_SERVER,
                                        REGCLS_MULTIPLEUSE | REGCLS_SUSPENDED, &cookie));
            cookies_.push_back(cookie);
        }
        check(CoResumeClassObjects());
    }
    OfferedClasses(const OfferedClasses&) = delete;
    OfferedClasses& operator=(const OfferedClasses&) = delete;
    ~OfferedClasses() {
        for (DWORD cookie : cookies_)
            CoRevokeClassObject(cookie);
    }

private:
    std::vector<DWORD> cookies_;
};

// Answers false when the loop shall end.
bool handleThreadMessage(const MSG& message, UINT_PTR& timer) {
    if (message.message == idleMessage)
        timer = SetTimer(nullptr, timer, lingerMilliseconds, nullptr);
    if (message.message != WM_TIMER || message.wParam != timer)
        return true;
    KillTimer(nullptr, timer);
    timer = 0;
    return moduleLocks() != 0;
}

void serve(const ServerClasses& server) {
    Apartment apartment;
    serverThread = GetCurrentThreadId();
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
    onModuleIdle(tellServerThread);
    OfferedClasses offered(server);
    UINT_PTR timer = SetTimer(nullptr, 0, firstClientMilliseconds, nullptr);
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!message.hwnd && !handleThreadMessage(message, timer))
            break;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    onModuleIdle(nullptr);
}

} // namespace

int runServer(const ServerClasses& server, const wchar_t* commandLine) noexcept {
    try {
        const std::wstring line = commandLine ? commandLine : L"";
        if (hasSwitch(line, L"unregserver"))
            unregisterServer(server);
        else if (hasSwitch(line, L"regserver"))
            registerServer(server, ServerKind::Program);
        else
            serve(server);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    } catch (...) {
        std::fprintf(stderr, "The server failed.\n");
    }
    return 1;
}

} // namespace tollvane::com
