#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace tollvane::test {

/// A component class that lives in the test program, registered for as long as this object does.
/// Its members: Echo(value) gives the value back, TypeOf(value) its system type, Item (a property
/// that stores, objects included), Put (only put, never assigned), Fail(n) raises number n of its
/// own, FailWith(hresult) raises that result with a text, Return(hresult) returns it bare, Late
/// raises a text that is filled in when it is asked for.
class ComponentDouble {
public:
    ComponentDouble();
    ComponentDouble(const ComponentDouble&) = delete;
    ComponentDouble& operator=(const ComponentDouble&) = delete;
    ~ComponentDouble();

    static const std::string progId;
    static const std::string classId;
    /// An interface that the objects support beside the late-bound one.
    static const std::string interfaceId;

private:
    DWORD registration_ = 0;
};

} // namespace tollvane::test
