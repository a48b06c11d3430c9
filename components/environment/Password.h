// A password between the box it was typed into and the host data server.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace tollvane::environment {

// Holds the text as automation passes it on and overwrites it when done.
class Password {
public:
    // Takes a copy of a caller's text.
    explicit Password(BSTR text);
    // Takes the text of an edit control.
    static Password typedInto(HWND box);

    Password(Password&& other) noexcept;
    Password(const Password&) = delete;
    Password& operator=(const Password&) = delete;
    Password& operator=(Password&&) = delete;
    ~Password();

    [[nodiscard]] BSTR get() const noexcept { return text_; }
    [[nodiscard]] bool empty() const noexcept { return SysStringLen(text_) == 0; }
    [[nodiscard]] bool same(const Password& other) const noexcept;

private:
    Password() = default;
    BSTR text_ = nullptr;
};

// Empties an edit control so that its memory no longer holds what was typed.
void wipeBox(HWND box) noexcept;

} // namespace tollvane::environment
