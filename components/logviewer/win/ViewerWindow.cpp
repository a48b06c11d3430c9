#include "components/logviewer/win/ViewerWindow.h"

#include "components/common/BoxLanguage.h"
#include "components/common/ComFailure.h"
#include "components/common/ControlName.h"
#include "components/logviewer/win/OpenQuestion.h"
#include "components/logviewer/win/Pixels.h"
#include "components/logviewer/win/ViewerMenu.h"

#include <commctrl.h>

#include <algorithm>

namespace tollvane::logviewer {

namespace {

constexpr const wchar_t* className = L"TollvaneLogLens";
constexpr const wchar_t* programName = L"LogLens";
constexpr int listId = 101;
constexpr UINT_PTR timerId = 1;
constexpr UINT timerMilliseconds = 100;
constexpr int firstWidth = 1120;
constexpr int firstHeight = 680;
constexpr int leastHeight = 320;
constexpr int margin = 8;

void registerClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = LoadIconW(description.hInstance, MAKEINTRESOURCEW(1));
    description.hCursor = LoadCursor(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = className;
    if (!RegisterClassExW(&description))
        com::throwLastError();
}

HFONT messageFont(UINT dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

std::wstring numberText(std::size_t value) {
    std::wstring digits = std::to_wstring(value);
    wchar_t separator[8] = L",";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, separator);
    return digits;
}

} // namespace

ViewerWindow::ViewerWindow(const std::filesystem::path& log) : keys_(viewerKeys()) {
    registerClass(procedure);
    const HWND made = CreateWindowExW(WS_EX_CONTROLPARENT, className, programName,
                                      WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT,
                                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr,
                                      viewerMenu(), GetModuleHandleW(nullptr), this);
    if (!made)
        com::throwLastError();
    open(log);
    ShowWindow(window_, SW_SHOWNORMAL);
    UpdateWindow(window_);
}

void ViewerWindow::run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(window_, keys_.get(), &message) ||
            IsDialogMessageW(window_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

LRESULT CALLBACK ViewerWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<ViewerWindow*>(
            reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        self->window_ = window;
    }
    auto* self = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->handle(message, wParam, lParam);
    } catch (const std::exception& problem) {
        MessageBoxExA(window, problem.what(), nullptr, MB_OK | MB_ICONEXCLAMATION,
                      com::kBoxLanguage);
    }
    return 0;
}

LRESULT ViewerWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE: create(); return 0;
    case WM_SIZE: layOut(); return 0;
    case WM_TIMER: refresh(); return 0;
    case WM_GETMINMAXINFO: limitSize(*reinterpret_cast<MINMAXINFO*>(lParam)); return 0;
    case WM_ACTIVATE: activate(LOWORD(wParam) != WA_INACTIVE); return 0;
    case WM_SETFOCUS: SetFocus(focused_ ? focused_ : list_.window()); return 0;
    case WM_COMMAND: command(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_DPICHANGED:
        changeResolution(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
        return 0;
    case WM_NEXTDLGCTL: moveFocus(wParam, LOWORD(lParam) != 0); return 0;
    case WM_NOTIFY: {
        const auto& question = *reinterpret_cast<const NMHDR*>(lParam);
        return question.idFrom == listId && view_ ? list_.answer(question, *view_) : 0;
    }
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void ViewerWindow::create() {
    com::setControlName(window_, L"frmLogLens");
    dpi_ = GetDpiForWindow(window_);
    filter_.create(window_);
    list_.create(window_, listId);
    totals_.create(window_);
    status_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0,
                              0, 0, 0, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    com::setControlName(status_, L"sbrState");
    setFont();
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& work = monitor.rcWork;
    const LONG width = std::min<LONG>(pixels(firstWidth, dpi_), work.right - work.left);
    const LONG height = std::min<LONG>(pixels(firstHeight, dpi_), work.bottom - work.top);
    SetWindowPos(window_, nullptr, (work.left + work.right - width) / 2,
                 (work.top + work.bottom - height) / 2, width, height, SWP_NOZORDER);
    SetTimer(window_, timerId, timerMilliseconds, nullptr);
}

void ViewerWindow::setFont() {
    const HFONT font = messageFont(dpi_);
    filter_.setFont(font, dpi_);
    list_.setFont(font, dpi_);
    totals_.setFont(font);
    SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    font_.reset(font);
}

void ViewerWindow::layOut() {
    if (!status_)
        return;
    SendMessageW(status_, WM_SIZE, 0, 0);
    RECT inside{};
    RECT bar{};
    GetClientRect(window_, &inside);
    GetWindowRect(status_, &bar);
    const int space = pixels(margin, dpi_);
    const int listTop = 2 * space + filter_.layOut(space, space, dpi_);
    const int totalsTop =
        inside.bottom - (bar.bottom - bar.top) - space - TotalsPanel::height(dpi_);
    MoveWindow(list_.window(), space, listTop, inside.right - 2 * space,
               totalsTop - space - listTop, TRUE);
    totals_.layOut(space, totalsTop, dpi_);
}

void ViewerWindow::limitSize(MINMAXINFO& limits) const {
    RECT frame{0, 0, FilterBar::leastWidth(dpi_), pixels(leastHeight, dpi_)};
    AdjustWindowRectExForDpi(&frame, WS_OVERLAPPEDWINDOW, TRUE, 0, dpi_);
    limits.ptMinTrackSize = {frame.right - frame.left, frame.bottom - frame.top};
}

void ViewerWindow::changeResolution(UINT dpi, const RECT& suggested) {
    dpi_ = dpi;
    setFont();
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
}

// The control that had the keyboard gets it back.
void ViewerWindow::activate(bool active) {
    if (active)
        SetFocus(focused_ ? focused_ : list_.window());
    else
        focused_ = GetFocus();
}

// An access key names its control, or the label before it and then the next one.
void ViewerWindow::moveFocus(WPARAM target, bool isWindow) {
    SetFocus(isWindow ? reinterpret_cast<HWND>(target)
                      : GetNextDlgTabItem(window_, GetFocus(), target != 0));
}

void ViewerWindow::open(const std::filesystem::path& log) {
    view_ = std::make_unique<LogView>(log);
    wantsEnd_ = true;
    SetWindowTextW(window_, (log.filename().native() + L" - " + programName).c_str());
    applyFilter();
}

void ViewerWindow::command(int id, int notification) {
    if (FilterBar::isClear(id, notification) || id == commandClear) {
        filter_.clear();
        applyFilter();
    } else if (filter_.isChange(id, notification)) {
        applyFilter();
    } else if (id == commandOpen) {
        askForLog();
    } else if (id == commandReload) {
        view_->restart();
        wantsEnd_ = true;
    } else if (id == commandCopy) {
        copy();
    } else if (id == commandSelectAll) {
        list_.selectAll();
    } else if (id == commandExit) {
        DestroyWindow(window_);
    }
}

void ViewerWindow::askForLog() {
    if (const auto log = askWhichLog(window_))
        open(*log);
}

void ViewerWindow::copy() {
    const std::size_t wanted = list_.selectedCount();
    const std::size_t copied = list_.copy(*view_);
    if (copied < wanted)
        MessageBoxExW(window_,
                      (L"The first " + numberText(copied) + L" of the " + numberText(wanted) +
                       L" selected lines were copied.")
                          .c_str(),
                      programName, MB_OK | MB_ICONINFORMATION, com::kBoxLanguage);
}

void ViewerWindow::applyFilter() {
    if (!view_)
        return;
    view_->setFilter(filter_.filter());
    wantsEnd_ = true;
    refresh();
}

void ViewerWindow::refresh() {
    if (!view_ || !view_->update())
        return;
    list_.setCount(view_->count(), view_->hasOnlyGrown());
    if (!filter_.setOperators(view_->operators()))
        view_->setFilter(filter_.filter());
    showState();
    if (wantsEnd_ && view_->progress().complete) {
        list_.goToEnd();
        wantsEnd_ = false;
    }
}

void ViewerWindow::showState() {
    if (view_->progress().complete)
        totals_.show(view_->totals());
    else
        totals_.showNothing();
    SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(stateText().c_str()));
}

std::wstring ViewerWindow::stateText() const {
    const Progress& progress = view_->progress();
    if (filter_.hasBadDay())
        return L"A date is written as 2026-11-21, 2026-11 or 2026.";
    if (!progress.complete)
        return L"Reading the log: " + std::to_wstring(progress.percent) + L" %";
    if (!progress.there)
        return L"There is no log yet: " + view_->path().native();
    std::wstring text = numberText(view_->count()) + L" of " + numberText(view_->allCount()) +
                        (view_->allCount() == 1 ? L" line" : L" lines");
    const auto damaged = static_cast<std::size_t>(view_->totals().damaged);
    if (damaged != 0)
        text += L", " + numberText(damaged) + L" of them damaged and not counted";
    return text;
}

} // namespace tollvane::logviewer
