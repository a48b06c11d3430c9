#include "components/hostdata/win/FreeThreadedServer.h"

#include "components/common/ClassFactory.h"
#include "components/common/ComFailure.h"
#include "components/common/ComPtr.h"
#include "components/common/ServerSign.h"

#include <objbase.h>

#include <vector>

namespace tollvane::hostdata {

namespace {

// A server that was started and then never asked for an object looks this often whether to end.
constexpr DWORD kUnusedMilliseconds = 120'000;
// How long a client may take from finding the server to asking it for an object.
constexpr DWORD kArrivalMilliseconds = 2'000;

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
    // Until the last object is gone; false when the time was over before.
    static bool wait(DWORD milliseconds) {
        return WaitForSingleObject(idleEvent, milliseconds) == WAIT_OBJECT_0;
    }
};

class MultithreadedApartment {
public:
    MultithreadedApartment() { com::check(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); }
    MultithreadedApartment(const MultithreadedApartment&) = delete;
    MultithreadedApartment& operator=(const MultithreadedApartment&) = delete;
    ~MultithreadedApartment() { CoUninitialize(); }
};

// The classes on offer. After they were withdrawn their factories still answer those who found them
// before, for as long as this lives.
class OfferedClasses {
public:
    explicit OfferedClasses(const com::ServerClasses& server) {
        for (const com::ServerClass& each : server.classes) {
            auto factory = com::makeObject<com::ClassFactory>(each);
            DWORD cookie = 0;
            com::check(CoRegisterClassObject(*each.classId, factory.get(), CLSCTX_LOCAL_SERVER,
                                             REGCLS_MULTIPLEUSE | REGCLS_SUSPENDED, &cookie));
            cookies_.push_back(cookie);
            com::check(CoLockObjectExternal(factory.get(), TRUE, TRUE));
            factories_.push_back(std::move(factory));
        }
        com::check(CoResumeClassObjects());
    }
    OfferedClasses(const OfferedClasses&) = delete;
    OfferedClasses& operator=(const OfferedClasses&) = delete;
    ~OfferedClasses() {
        withdraw();
        for (const auto& factory : factories_)
            CoLockObjectExternal(factory.get(), FALSE, TRUE);
    }

    void withdraw() noexcept {
        for (const DWORD cookie : cookies_)
            CoRevokeClassObject(cookie);
        cookies_.clear();
    }

private:
    std::vector<com::ComPtr<com::ClassFactory>> factories_;
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

// The classes are withdrawn: whoever comes now starts a server of its own. But a client that found
// this one a moment ago may not have its object yet; it is served like any other.
void serveLateArrivals() {
    while (IdleEvent::wait(kArrivalMilliseconds) || com::moduleLocks() != 0) {
    }
}

} // namespace

void runFreeThreaded(const com::ServerClasses& server, const ServerSteps& steps) {
    const MultithreadedApartment apartment;
    const IdleEvent idle;
    OfferedClasses offered(server);
    const com::ServerSign sign(com::kHostDataSign);
    sign.show();
    steps.onOffer();
    do {
        sign.show();
        IdleEvent::wait(kUnusedMilliseconds);
        sign.hide();
    } while (!mayEnd());
    offered.withdraw();
    steps.atRest();
    serveLateArrivals();
}

} // namespace tollvane::hostdata
