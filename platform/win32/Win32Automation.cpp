#include "platform/win32/Win32Automation.h"

#include "platform/win32/AutomationErrors.h"
#include "platform/win32/SystemText.h"
#include "platform/win32/Win32Object.h"

namespace tollvane::win32 {

namespace {

constexpr DWORD kHere = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

void check(HRESULT result, const std::string& source) {
    if (FAILED(result)) {
        throw callError(result, source);
    }
}

bool isThisComputer(const std::string& computer) {
    char name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    return computer.empty() ||
           (GetComputerNameA(name, &size) && lstrcmpiA(computer.c_str(), name) == 0);
}

ObjectRef objectOf(IUnknown* created, const std::string& source) {
    ComRef<IDispatch> dispatch;
    check(created->QueryInterface(IID_IDispatch, dispatch.receive()), source);
    return std::make_shared<Win32Object>(std::move(dispatch));
}

} // namespace

ObjectRef Win32Automation::create(const std::string& progId, const std::string& computer) {
    CLSID id{};
    check(CLSIDFromProgID(widened(progId).c_str(), &id), progId);
    if (isThisComputer(computer)) {
        ComRef<IUnknown> created;
        check(CoCreateInstance(id, nullptr, kHere, IID_IUnknown, created.receive()), progId);
        return objectOf(created.get(), progId);
    }
    std::wstring name = widened(computer);
    COSERVERINFO server{};
    server.pwszName = name.data();
    MULTI_QI wanted{&IID_IUnknown, nullptr, S_OK};
    check(CoCreateInstanceEx(id, nullptr, CLSCTX_REMOTE_SERVER, &server, 1, &wanted), progId);
    return objectOf(ComRef<IUnknown>(wanted.pItf).get(), progId);
}

ObjectRef Win32Automation::createClass(const std::string& classId, const std::string& interfaceId) {
    CLSID id{};
    IID wanted{};
    check(CLSIDFromString(widened(classId).c_str(), &id), classId);
    check(IIDFromString(widened(interfaceId).c_str(), &wanted), interfaceId);
    ComRef<IUnknown> created;
    check(CoCreateInstance(id, nullptr, kHere, IID_IUnknown, created.receive()), classId);
    ComRef<IUnknown> face;
    check(created->QueryInterface(wanted, face.receive()), classId);
    return objectOf(face.get(), classId);
}

} // namespace tollvane::win32
