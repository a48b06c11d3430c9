#include "platform/win32/Win32Form.h"

#include "platform/win32/ControlFactory.h"
#include "platform/win32/MessagePump.h"

#include <algorithm>

namespace tollvane::win32 {

namespace {

constexpr const char* kClassName = "TollvaneForm";
constexpr int kProgramIcon = 1; // resource id
constexpr long kControlNotFound = 730;
constexpr long kCannotShow = 400;

DWORD styleOf(const FormDescription& description) {
    DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
    if (!description.dialog) {
        style |= WS_MINIMIZEBOX;
    }
    if (description.resizable) {
        style |= WS_THICKFRAME | WS_MAXIMIZEBOX;
    }
    return style;
}

/// Keeps a window of that size on the work area of the monitor at `place`.
POINT keptOnScreen(POINT place, SIZE size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    return {std::max(work.left, std::min(place.x, work.right - size.cx)),
            std::max(work.top, std::min(place.y, work.bottom - size.cy))};
}

} // namespace

void Win32Form::registerClass(HINSTANCE instance) {
    WNDCLASSEXA known{};
    known.cbSize = sizeof known;
    if (GetClassInfoExA(instance, kClassName, &known)) {
        return;
    }
    WNDCLASSEXA window{};
    window.cbSize = sizeof window;
    window.style = CS_DBLCLKS;
    window.lpfnWndProc = &procedure;
    window.hInstance = instance;
    window.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(kProgramIcon));
    window.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    window.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    window.lpszClassName = kClassName;
    RegisterClassExA(&window);
}

Win32Form::Win32Form(Ui& ui, const FormDescription& description)
    : core_(ui, on, description), caption_(description.caption) {
    menus_ = std::make_unique<FormMenus>(core_, description.menus);
    createWindow(description);
    createControls(description);
    // The access keys and the focus are there to be seen: this is a program for keyboards.
    SendMessageA(core_.window(), WM_CHANGEUISTATE,
                 MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
}

Win32Form::~Win32Form() {
    if (const HWND window = core_.window()) {
        core_.ui().closed(core_);
        menus_->detach();
        DestroyWindow(window);
    }
}

void Win32Form::createWindow(const FormDescription& description) {
    const DWORD style = styleOf(description);
    const DWORD extended =
        WS_EX_CONTROLPARENT | (description.dialog ? WS_EX_DLGMODALFRAME : WS_EX_APPWINDOW);
    const HWND window =
        CreateWindowExA(extended, kClassName, caption_.c_str(), style, CW_USEDEFAULT, CW_USEDEFAULT,
                        0, 0, nullptr, nullptr, core_.ui().instance(), this);
    if (!window) {
        throw Error(static_cast<long>(GetLastError()), core_.name(),
                    "The window cannot be created.");
    }
    core_.setWindow(window);
    menus_->attach();
    RECT size{0, 0, scaled(description.width, core_.dpi()),
              scaled(description.height, core_.dpi())};
    AdjustWindowRectExForDpi(&size, style, menus_->hasBar(), extended,
                             static_cast<UINT>(core_.dpi()));
    smallest_ = {size.right - size.left, size.bottom - size.top};
    smallestDpi_ = core_.dpi();
    SetWindowPos(window, nullptr, 0, 0, smallest_.cx, smallest_.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Form::createControls(const FormDescription& description) {
    for (const ControlDescription& row : description.controls) {
        core_.add(makeControl(core_, description, row));
        ports_.push_back(&core_.controls().back()->port());
    }
    putFramesBelow();
    for (const auto& item : menus_->items()) {
        ports_.push_back(item.get());
    }
}

void Win32Form::putFramesBelow() {
    // A new window stands below its siblings, so a frame would cover what is created after it.
    for (const auto& control : core_.controls()) {
        if (control->port().kind() == ControlKind::frame) {
            SetWindowPos(control->window(), HWND_BOTTOM, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
}

Control& Win32Form::find(std::string_view name, int index) {
    const auto found = std::find_if(ports_.begin(), ports_.end(), [&](const Control* control) {
        return control->name() == name && control->index() == index;
    });
    if (found == ports_.end()) {
        throw Error(kControlNotFound, core_.name(),
                    "Control '" + std::string(name) + "' not found");
    }
    return **found;
}

Control* Win32Form::activeControl() {
    NativeControl* const active = core_.focus.active();
    return active ? &active->port() : nullptr;
}

void Win32Form::setCaption(const std::string& caption) {
    if (caption_ != caption) {
        caption_ = caption;
        SetWindowTextA(core_.window(), caption_.c_str());
    }
}

int Win32Form::left() const {
    RECT place{};
    GetWindowRect(core_.window(), &place);
    return twipsFromPixels(place.left, core_.dpi());
}

int Win32Form::top() const {
    RECT place{};
    GetWindowRect(core_.window(), &place);
    return twipsFromPixels(place.top, core_.dpi());
}

void Win32Form::move(int left, int top) {
    SetWindowPos(core_.window(), nullptr, pixelsFromTwips(left, core_.dpi()),
                 pixelsFromTwips(top, core_.dpi()), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

WindowState Win32Form::windowState() const {
    if (IsIconic(core_.window())) {
        return WindowState::minimised;
    }
    return IsZoomed(core_.window()) ? WindowState::maximised : WindowState::normal;
}

void Win32Form::setMousePointer(MousePointer pointer) {
    core_.pointer = pointer;
    SetCursor(LoadCursorA(nullptr, pointer == MousePointer::hourglass ? IDC_WAIT : IDC_ARROW));
}

void Win32Form::refresh() {
    if (core_.window()) {
        RedrawWindow(core_.window(), nullptr, nullptr,
                     RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
}

void Win32Form::raise(const std::function<void()>& handler) {
    if (handler) {
        core_.ui().guarded(handler);
    }
}

void Win32Form::show() {
    if (!core_.window()) {
        throw Error(kCannotShow, core_.name(), "The form has been closed");
    }
    if (!std::exchange(loaded_, true)) {
        raise(on.load);
    }
    if (!core_.window()) {
        return; // closed again while it was loaded
    }
    const bool first = !std::exchange(shown_, true);
    core_.ui().opened(core_);
    showing_ = first;
    ShowWindow(core_.window(), first ? SW_SHOWNORMAL : SW_SHOW);
    SetForegroundWindow(core_.window());
    showing_ = false;
    if (first) {
        UpdateWindow(core_.window());
        core_.focus.enterFirst();
        raise(on.activate);
    }
    core_.deliverActivation();
}

void Win32Form::showModal(Form* owner) {
    if (!core_.window()) {
        return;
    }
    core_.ui().openedModal(core_);
    const auto* const parent = dynamic_cast<const Win32Form*>(owner);
    SetWindowLongPtrA(core_.window(), GWLP_HWNDPARENT,
                      reinterpret_cast<LONG_PTR>(parent ? parent->window() : nullptr));
    centreOver(owner);
    for (const FormCore* other : core_.ui().openForms()) {
        if (other != &core_ && IsWindowEnabled(other->window())) {
            heldByModal_.push_back(other->window());
            EnableWindow(other->window(), FALSE);
        }
    }
    show();
    pumpWhile(core_.ui(), [this] { return isOpen(); });
    core_.ui().deliverActivations();
}

void Win32Form::centreOver(const Form* owner) {
    const auto* const parent = dynamic_cast<const Win32Form*>(owner);
    RECT around{};
    if (!parent || !IsWindowVisible(parent->window()) ||
        !GetWindowRect(parent->window(), &around)) {
        SystemParametersInfoA(SPI_GETWORKAREA, 0, &around, 0);
    }
    RECT own{};
    GetWindowRect(core_.window(), &own);
    const SIZE size{own.right - own.left, own.bottom - own.top};
    const POINT place = keptOnScreen(
        {(around.left + around.right - size.cx) / 2, (around.top + around.bottom - size.cy) / 2},
        size);
    SetWindowPos(core_.window(), nullptr, place.x, place.y, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Form::close() {
    if (!core_.window() || std::exchange(closing_, true)) {
        return;
    }
    raise(on.unload);
    core_.ui().closed(core_);
    // Enabled before this window goes, or the system would activate another program's window.
    for (const HWND held : std::exchange(heldByModal_, {})) {
        EnableWindow(held, TRUE);
    }
    activateNext();
    menus_->detach();
    DestroyWindow(core_.window());
    core_.ui().deliverActivations();
}

void Win32Form::activateNext() {
    const auto& forms = core_.ui().openForms();
    const auto next = std::find_if(forms.rbegin(), forms.rend(), [](const FormCore* form) {
        return IsWindowEnabled(form->window()) != FALSE;
    });
    if (core_.isActive() && next != forms.rend()) {
        SetActiveWindow((*next)->window());
    }
}

void Win32Form::limitSize(MINMAXINFO& limits) const {
    limits.ptMinTrackSize = {MulDiv(smallest_.cx, core_.dpi(), smallestDpi_),
                             MulDiv(smallest_.cy, core_.dpi(), smallestDpi_)};
}

LRESULT CALLBACK Win32Form::procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        const auto* const creation = // NOLINTNEXTLINE(performance-no-int-to-ptr)
            reinterpret_cast<const CREATESTRUCTA*>(second);
        SetWindowLongPtrA(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const form = reinterpret_cast<Win32Form*>( // NOLINT(performance-no-int-to-ptr)
        GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!form || form->core_.window() != window) {
        return DefWindowProcA(window, message, first, second); // not built yet
    }
    LRESULT answer = 0;
    form->core_.ui().guarded([&] { answer = form->received(message, first, second); });
    return answer;
}

LRESULT Win32Form::received(UINT message, WPARAM first, LPARAM second) {
    const HWND window = core_.window();
    if (message == core_.ui().controlNameMessage()) {
        return answerControlName(core_.name(), first, second);
    }
    if (const auto answer = keyMessage(message, first, second)) {
        return *answer;
    }
    if (const auto answer = paintMessage(message, first, second)) {
        return *answer;
    }
    if (const auto answer = windowMessage(message, first, second)) {
        return *answer;
    }
    return DefWindowProcA(window, message, first, second);
}

std::optional<LRESULT> Win32Form::keyMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (!core_.keys.keyDown(nullptr, first, message == WM_SYSKEYDOWN)) {
            return 0;
        }
        return std::nullopt;
    case WM_CHAR: core_.keys.character(nullptr, first, second); return 0;
    case WM_SYSCHAR:
        return core_.keys.altCharacter(first) ? std::optional<LRESULT>(0) : std::nullopt;
    case WM_COMMAND: command(first, second); return 0;
    case WM_INITMENUPOPUP:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        menus_->opening(reinterpret_cast<HMENU>(first));
        return 0;
    case WM_TIMER: {
        const auto& controls = core_.controls();
        const auto timer = std::find_if(controls.begin(), controls.end(), [first](const auto& one) {
            return reinterpret_cast<WPARAM>(one.get()) == first;
        });
        if (timer != controls.end()) {
            (*timer)->timerRang();
        }
        return 0;
    }
    default: return std::nullopt;
    }
}

void Win32Form::command(WPARAM first, LPARAM second) {
    if (second == 0) {
        menus_->chosen(LOWORD(first));
        return;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    if (NativeControl* const control = core_.controlOf(reinterpret_cast<HWND>(second))) {
        control->command(HIWORD(first));
    }
}

std::optional<LRESULT> Win32Form::paintMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN: {
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        NativeControl* const control = core_.controlOf(reinterpret_cast<HWND>(second));
        if (!control || control->kind() == ControlKind::button) {
            return std::nullopt;
        }
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return reinterpret_cast<LRESULT>(control->colours(reinterpret_cast<HDC>(first)));
    }
    case WM_SETCURSOR:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        return pointerShape(reinterpret_cast<HWND>(first));
    case WM_DPICHANGED:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        dpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
        return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
        for (const auto& control : core_.controls()) {
            SendMessageA(control->window(), message, first, second);
        }
        return std::nullopt;
    default: return std::nullopt;
    }
}

std::optional<LRESULT> Win32Form::pointerShape(HWND over) const {
    const bool inside = over == core_.window() || IsChild(core_.window(), over);
    if (!inside || core_.pointer != MousePointer::hourglass || core_.ui().openBox()) {
        return std::nullopt;
    }
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    return TRUE;
}

void Win32Form::dpiChanged(WPARAM dpi, const RECT& suggested) {
    core_.setDpi(static_cast<int>(dpi));
    SetWindowPos(core_.window(), nullptr, suggested.left, suggested.top,
                 suggested.right - suggested.left, suggested.bottom - suggested.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    core_.layOut();
}

std::optional<LRESULT> Win32Form::windowMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CLOSE:
        // While a box or a dialog is open, another program's wish to close has to wait.
        if (IsWindowEnabled(core_.window())) {
            close();
        }
        return 0;
    case WM_ENDSESSION:
        if (first) {
            close(); // the position is saved and the components are let go, as ever
        }
        return 0;
    case WM_DESTROY: core_.setWindow(nullptr); return std::nullopt;
    case WM_SIZE:
        if (first != SIZE_MINIMIZED) {
            core_.resized();
        }
        return 0;
    case WM_GETMINMAXINFO:
        // NOLINTNEXTLINE(performance-no-int-to-ptr)
        limitSize(*reinterpret_cast<MINMAXINFO*>(second));
        return 0;
    case WM_SETFOCUS: core_.focus.restore(); return 0;
    case WM_ACTIVATE: activation(LOWORD(first) != WA_INACTIVE); return std::nullopt;
    case kActivated: core_.deliverActivation(); return 0;
    case WM_LBUTTONDBLCLK:
        if (isBackground(
                {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))})) {
            raise(on.doubleClick);
        }
        return 0;
    case WM_HELP:
        if (const Message* box = core_.ui().openBox(); box && !box->helpFile.empty()) {
            WinHelpA(core_.window(), box->helpFile.c_str(), HELP_CONTEXT,
                     static_cast<ULONG_PTR>(box->helpTopic));
        }
        return TRUE;
    default: return std::nullopt;
    }
}

void Win32Form::activation(bool active) {
    if (!active) {
        // A message box of the program is part of the form's own work, not another window.
        leftForBox_ = core_.ui().openBox() != nullptr;
    } else if (!std::exchange(leftForBox_, false) && !showing_) {
        core_.activated();
    }
}

bool Win32Form::isBackground(POINT place) const {
    return ChildWindowFromPointEx(core_.window(), place, CWP_SKIPINVISIBLE) == core_.window();
}

} // namespace tollvane::win32
