#include "platform/win32/Win32Decorations.h"

#include <array>

namespace tollvane::win32 {

namespace {

constexpr int kProgramIcon = 1; // resource id
constexpr int kCaptionInset = 9;
constexpr int kCaptionPadding = 4;

COLORREF between(COLORREF one, COLORREF other) {
    return RGB((GetRValue(one) + GetRValue(other)) / 2, (GetGValue(one) + GetGValue(other)) / 2,
               (GetBValue(one) + GetBValue(other)) / 2);
}

} // namespace

Win32Label::Win32Label(FormCore& form, const ControlDescription& description)
    : CaptionedOf(form, description) {
    createWindow("STATIC", captionText().c_str(), description.rightAligned ? SS_RIGHT : SS_LEFT);
}

Win32Frame::Win32Frame(FormCore& form, const ControlDescription& description)
    : CaptionedOf(form, description) {
    createWindow("BUTTON", captionText().c_str(), BS_GROUPBOX);
}

LRESULT Win32Frame::handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_PAINT: paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_SETTEXT:
    case WM_ENABLE: {
        // The system's control would paint itself at once, in its own way.
        SendMessageA(window(), WM_SETREDRAW, FALSE, 0);
        const LRESULT answer = CaptionedOf::handle(message, first, second);
        SendMessageA(window(), WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window(), nullptr, TRUE);
        return answer;
    }
    default: return CaptionedOf::handle(message, first, second);
    }
}

void Win32Frame::paint() {
    PAINTSTRUCT paint{};
    const HDC context = BeginPaint(window(), &paint);
    RECT area{};
    GetClientRect(window(), &area);
    const COLORREF back = systemColour(back_);
    FillRect(context, &area, colours(context));

    const SelectedObject font(context, form().font(bold_));
    TEXTMETRICA metrics{};
    GetTextMetricsA(context, &metrics);
    RECT box = area;
    box.top += metrics.tmHeight / 2;
    const PenHandle line(
        CreatePen(PS_SOLID, scaled(1, form().dpi()), between(back, GetSysColor(COLOR_BTNSHADOW))));
    {
        const SelectedObject pen(context, line.get());
        const SelectedObject inside(context, GetStockObject(NULL_BRUSH));
        const int corner = scaled(6, form().dpi());
        RoundRect(context, box.left, box.top, box.right, box.bottom, corner, corner);
    }
    if (!captionText().empty()) {
        RECT text{scaled(kCaptionInset, form().dpi()), 0, area.right, metrics.tmHeight};
        RECT needed = text;
        DrawTextA(context, captionText().c_str(), -1, &needed, DT_SINGLELINE | DT_CALCRECT);
        text.right = needed.right + scaled(kCaptionPadding, form().dpi());
        text.left -= scaled(kCaptionPadding, form().dpi());
        FillRect(context, &text, colours(context));
        SetBkMode(context, TRANSPARENT);
        SetTextColor(context, systemColour(enabled_ ? fore_ : Colour::System::greyText));
        DrawTextA(context, captionText().c_str(), -1, &text, DT_SINGLELINE | DT_CENTER);
    }
    EndPaint(window(), &paint);
}

Win32Picture::Win32Picture(FormCore& form, const ControlDescription& description)
    : ControlOf(form, description) {
    createWindow("STATIC", "", SS_ICON | SS_REALSIZECONTROL);
    place();
}

void Win32Picture::place() {
    const RECT at = form().pixels(bounds_);
    IconHandle icon(
        static_cast<HICON>(LoadImageA(form().ui().instance(), MAKEINTRESOURCEA(kProgramIcon),
                                      IMAGE_ICON, at.right - at.left, at.bottom - at.top, 0)));
    native(STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
    icon_ = std::move(icon);
    ControlOf::place();
}

} // namespace tollvane::win32
