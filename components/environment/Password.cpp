#include "components/environment/Password.h"

#include "components/common/ComText.h"

#include <new>
#include <string>
#include <utility>

namespace tollvane::environment {

Password::Password(BSTR text) : text_(SysAllocStringLen(text, SysStringLen(text))) {
    if (text_ == nullptr)
        throw std::bad_alloc();
}

Password Password::typedInto(HWND box) {
    Password password;
    const auto length = static_cast<UINT>(GetWindowTextLengthW(box));
    password.text_ = SysAllocStringLen(nullptr, length);
    if (password.text_ == nullptr)
        throw std::bad_alloc();
    GetWindowTextW(box, password.text_, static_cast<int>(length) + 1);
    return password;
}

Password::Password(Password&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}

Password::~Password() {
    com::wipe(text_);
    SysFreeString(text_);
}

bool Password::same(const Password& other) const noexcept {
    return com::view(text_) == com::view(other.text_);
}

// An edit control keeps its old memory when the text becomes shorter: the text is written over in
// its full length before it is emptied.
void wipeBox(HWND box) noexcept {
    const auto length = static_cast<std::size_t>(GetWindowTextLengthW(box));
    try {
        SetWindowTextW(box, std::wstring(length, L'x').c_str());
    } catch (const std::bad_alloc&) {
        SetWindowTextW(box, L"x"); // emptied below in any case
    }
    SetWindowTextW(box, L"");
    SendMessageW(box, EM_EMPTYUNDOBUFFER, 0, 0);
}

} // namespace tollvane::environment
