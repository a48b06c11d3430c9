#include "components/hostdata/win/FreeThreadedServer.h"

#include "components/common/ClassFactory.h"
#include "components/common/ComFailure.h"
#include "components/common/ComPtr.h"

#include <objbase.h>

#include <vector>

namespace tollvane::hostdata {

namespace {

// A server that was started and then never asked for an object looks this often whether to end.
constexpr DWORD kUnusedMilliseconds = 120'000;

// Signalled whenever the last object is gone; the main thread then looks again. The callback that
// signals it carries no context of its own.
HANDLE idleEvent = nullptr;

class IdleEvent {
public:
    IdleEvent() {
        idleEvent = CreateEventW(nullptr, FALSE, FALSE, nullptr);
        if (idleEvent == nullptr)
            com::throwLastError();
        com::onModuleIdle([] { SetEvent(idleEvent); });
    }
    IdleEvent(const IdleEvent&) = delete;
    IdleEvent& operator=(const IdleEvent&) = delete;
    ~IdleEvent() {
        com::onModuleIdle(nullptr);
        CloseHandle(idleEvent);
    }
    static void wait() { WaitForSingleObject(idleEvent, kUnusedMilliseconds); }
};

class MultithreadedApartment {
public:
    MultithreadedApartment() { com::check(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); }
    MultithreadedApartment(const MultithreadedApartment&) = delete;
    MultithreadedApartment& operator=(const MultithreadedApartment&) = delete;
    ~MultithreadedApartment() { CoUninitialize(); }
};

class OfferedClasses {
public:
    explicit OfferedClasses(const com::ServerClasses& server) {
        for (const com::ServerClass& each : server.classes) {
            const auto factory = com::makeObject<com::ClassFactory>(each);
            DWORD cookie = 0;
            com::check(CoRegisterClassObject(*each.classId, factory.get(), CLSCTX_LOCAL_SERVER,
                                             REGCLS_MULTIPLEUSE | REGCLS_SUSPENDED, &cookie));
            cookies_.push_back(cookie);
        }
        com::check(CoResumeClassObjects());
    }
    OfferedClasses(const OfferedClasses&) = delete;
    OfferedClasses& operator=(const OfferedClasses&) = delete;
    ~OfferedClasses() {
        for (const DWORD cookie : cookies_)
            CoRevokeClassObject(cookie);
    }

private:
    std::vector<DWORD> cookies_;
};

// A client may come between the last release and the closing of the door.
bool mayEnd() {
    if (com::moduleLocks() != 0)
        return false;
    CoSuspendClassObjects();
    if (com::moduleLocks() == 0)
        return true;
    CoResumeClassObjects();
    return false;
}

} // namespace

void runFreeThreaded(const com::ServerClasses& server) {
    const MultithreadedApartment apartment;
    const IdleEvent idle;
    const OfferedClasses offered(server);
    do {
        IdleEvent::wait();
    } while (!mayEnd());
}

} // namespace tollvane::hostdata
