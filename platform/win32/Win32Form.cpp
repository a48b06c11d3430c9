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

} // namespace tollvane::win32
