#include "platform/win32/CentredLine.h"

#include "platform/win32/Handles.h"

namespace tollvane::win32 {

namespace {

/// A window's device context, borders included, until the end of the block.
class WindowContext {
public:
    explicit WindowContext(HWND window) : window_(window), context_(GetWindowDC(window)) {}
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    ~WindowContext() { ReleaseDC(window_, context_); }

    HDC get() const { return context_; }

private:
    HWND window_;
    HDC context_;
};

int lineHeight(HWND edit) {
    const WindowContext context(edit);
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    const auto font = reinterpret_cast<HFONT>(SendMessageA(edit, WM_GETFONT, 0, 0));
    const SelectedObject selected(context.get(), font ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(context.get(), &metrics);
    return metrics.tmHeight;
}

} // namespace

void centreLine(HWND edit, RECT& client) {
    const LONG spare = client.bottom - client.top - lineHeight(edit);
    if (spare > 1) {
        client.top += spare / 2;
        client.bottom -= spare - spare / 2;
    }
}

void paintAroundLine(HWND edit, HBRUSH brush) {
    RECT window{};
    RECT client{};
    GetWindowRect(edit, &window);
    GetClientRect(edit, &client);
    MapWindowPoints(edit, nullptr, reinterpret_cast<POINT*>(&client), 2);
    OffsetRect(&client, -window.left, -window.top);
    OffsetRect(&window, -window.left, -window.top);
    const int border = GetSystemMetrics(SM_CYEDGE);
    const RECT above{client.left, border, client.right, client.top};
    const RECT below{client.left, client.bottom, client.right, window.bottom - border};
    const WindowContext context(edit);
    FillRect(context.get(), &above, brush);
    FillRect(context.get(), &below, brush);
}

} // namespace tollvane::win32
