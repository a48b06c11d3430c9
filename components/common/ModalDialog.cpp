#include "components/common/ModalDialog.h"

#include "components/common/BoxLanguage.h"
#include "components/common/ComFailure.h"
#include "components/common/ComText.h"
#include "components/common/ControlName.h"
#include "components/common/DialogTemplate.h"
#include "components/common/ModuleLock.h"

#include <commctrl.h>

#include <algorithm>

namespace tollvane::com {

namespace {

// While it lives, windows of this thread get the controls that our own manifest asks for. A program
// has its manifest as resource 1 and needs no help; a library has it as resource 2.
class ModernControls {
public:
    ModernControls() noexcept {
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        description.hModule = thisModule();
        description.lpResourceName = MAKEINTRESOURCEW(2);
        context_ = CreateActCtxW(&description);
        if (context_ != INVALID_HANDLE_VALUE)
            active_ = ActivateActCtx(context_, &cookie_) != FALSE;
    }
    ModernControls(const ModernControls&) = delete;
    ModernControls& operator=(const ModernControls&) = delete;
    ~ModernControls() {
        if (active_)
            DeactivateActCtx(0, cookie_);
        if (context_ != INVALID_HANDLE_VALUE)
            ReleaseActCtx(context_);
    }

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

// The library of the controls comes with the first window; `modern` says which version of it.
void loadControls(const ModernControls& /*modern*/) noexcept {
    const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&wanted);
}

// A dialog that is never shown.
INT_PTR CALLBACK unseen(HWND /*window*/, UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    return FALSE;
}

bool hasEdit(DialogItem item) {
    return item == DialogItem::TextBox || item == DialogItem::PasswordBox ||
           item == DialogItem::NumberBox || item == DialogItem::ReadOnlyBox;
}

} // namespace

bool ModalDialog::run(HWND owner) {
    const ModernControls modern;
    loadControls(modern);
    owner_ = owner;
    const std::vector<BYTE> bytes = dialogTemplate(layout_);
    const INT_PTR result =
        DialogBoxIndirectParamW(thisModule(), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()),
                                owner, procedure, reinterpret_cast<LPARAM>(this));
    window_ = nullptr;
    if (result == -1)
        throwLastError();
    return result == IDOK;
}

void ModalDialog::prepare() const noexcept {
    try {
        const ModernControls modern;
        loadControls(modern);
        const std::vector<BYTE> bytes = dialogTemplate(layout_);
        const HWND hidden = CreateDialogIndirectParamW(
            thisModule(), reinterpret_cast<LPCDLGTEMPLATEW>(bytes.data()), nullptr, unseen, 0);
        if (hidden != nullptr)
            DestroyWindow(hidden);
    } catch (...) {
        return; // the dialog loads by itself what it needs
    }
}

INT_PTR CALLBACK ModalDialog::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<ModalDialog*>(lParam)->window_ = window;
    }
    auto* self = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self)
        return FALSE;
    try {
        return self->handle(message, wParam);
    } catch (const std::exception& error) {
        MessageBoxExA(window, error.what(), nullptr, MB_OK | MB_ICONEXCLAMATION, kBoxLanguage);
    } catch (...) {
        MessageBoxExA(window, "An unexpected problem came up.", nullptr, MB_OK | MB_ICONEXCLAMATION,
                      kBoxLanguage);
    }
    return FALSE;
}

INT_PTR ModalDialog::handle(UINT message, WPARAM wParam) {
    if (message == WM_INITDIALOG) {
        initialise();
        const HWND before = GetFocus();
        onShow();
        return GetFocus() == before || !GetFocus();
    }
    if (message == WM_TIMER)
        onTimer();
    if (message == WM_COMMAND)
        return command(LOWORD(wParam), HIWORD(wParam));
    return FALSE;
}

void ModalDialog::initialise() {
    setControlName(window_, layout_.name);
    HWND child = GetWindow(window_, GW_CHILD);
    for (const DialogControl& control : layout_.controls) {
        if (!child)
            break;
        setControlName(child, control.name);
        if (hasEdit(control.item) && control.maximumLength > 0)
            SendMessageW(child, EM_SETLIMITTEXT, static_cast<WPARAM>(control.maximumLength), 0);
        child = GetWindow(child, GW_HWNDNEXT);
    }
    centre();
}

void ModalDialog::centre() const {
    RECT mine{};
    GetWindowRect(window_, &mine);
    const HWND anchor = owner_ && !IsIconic(owner_) ? owner_ : nullptr;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(anchor ? anchor : window_, MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    RECT around = monitor.rcWork;
    if (anchor)
        GetWindowRect(anchor, &around);
    const LONG width = mine.right - mine.left;
    const LONG height = mine.bottom - mine.top;
    const RECT& work = monitor.rcWork;
    const LONG x = (around.left + around.right - width) / 2;
    const LONG y = (around.top + around.bottom - height) / 2;
    SetWindowPos(window_, nullptr, std::max(work.left, std::min(x, work.right - width)),
                 std::max(work.top, std::min(y, work.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool ModalDialog::command(int id, int notification) {
    if (id == IDCANCEL)
        close(false);
    else if (id != IDOK)
        onCommand(id, notification);
    else if (onOk())
        close(true);
    return true;
}

std::string ModalDialog::text(int id) const {
    const HWND control = item(id);
    std::wstring wide(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, wide.data(), static_cast<int>(wide.size()));
    std::string result = narrow(std::wstring_view(wide.data(), static_cast<std::size_t>(length)));
    SecureZeroMemory(wide.data(), wide.size() * sizeof(wchar_t));
    return result;
}

void ModalDialog::setText(int id, std::string_view text) {
    SetDlgItemTextW(window_, id, widen(text).c_str());
}

bool ModalDialog::checked(int id) const {
    return IsDlgButtonChecked(window_, id) == BST_CHECKED;
}

void ModalDialog::setChecked(int id, bool checked) {
    CheckDlgButton(window_, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

void ModalDialog::setEnabled(int id, bool enabled) {
    EnableWindow(item(id), enabled);
}

void ModalDialog::addChoice(int id, std::string_view text) {
    SendMessageW(item(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(widen(text).c_str()));
}

int ModalDialog::choice(int id) const {
    return static_cast<int>(SendMessageW(item(id), CB_GETCURSEL, 0, 0));
}

void ModalDialog::setChoice(int id, int index) {
    SendMessageW(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void ModalDialog::focus(int id) {
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(id)), TRUE);
    if (SendMessageW(item(id), WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageW(item(id), EM_SETSEL, 0, -1);
}

void ModalDialog::complain(std::string_view message, int id) {
    MessageBoxExW(window_, widen(message).c_str(), layout_.caption, MB_OK | MB_ICONINFORMATION,
                  kBoxLanguage);
    if (id >= 0)
        focus(id);
}

void ModalDialog::close(bool ok) {
    EndDialog(window_, ok ? IDOK : IDCANCEL);
}

} // namespace tollvane::com
