#pragma once

#include <windows.h>

#include <thread>

namespace tollvane::test {

/// A window of another thread: to the forms it is what another program's window is.
class OtherProgram {
public:
    OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram();

    HWND window() const { return window_; }

private:
    HWND window_ = nullptr;
    std::thread thread_;
};

} // namespace tollvane::test
