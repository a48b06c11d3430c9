#include "components/common/DialogTemplate.h"

#include <cstring>
#include <cwchar>

namespace tollvane::com {

namespace {

constexpr WORD buttonClass = 0x0080;
constexpr WORD editClass = 0x0081;
constexpr WORD staticClass = 0x0082;
constexpr WORD listClass = 0x0083;
constexpr WORD comboClass = 0x0085;

struct Kind {
    WORD windowClass;
    DWORD style;
    DWORD extendedStyle;
};

constexpr DWORD box = WS_TABSTOP | ES_AUTOHSCROLL;

constexpr Kind kindOf(DialogItem item) {
    switch (item) {
    case DialogItem::Label: return {staticClass, SS_LEFT, 0};
    case DialogItem::Note: return {staticClass, SS_LEFT | SS_NOPREFIX, 0};
    case DialogItem::Group: return {buttonClass, BS_GROUPBOX, 0};
    case DialogItem::TextBox: return {editClass, box, WS_EX_CLIENTEDGE};
    case DialogItem::PasswordBox: return {editClass, box | ES_PASSWORD, WS_EX_CLIENTEDGE};
    case DialogItem::NumberBox: return {editClass, box | ES_NUMBER, WS_EX_CLIENTEDGE};
    case DialogItem::ReadOnlyBox: return {editClass, box | ES_READONLY, WS_EX_CLIENTEDGE};
    case DialogItem::CheckBox: return {buttonClass, WS_TABSTOP | BS_AUTOCHECKBOX, 0};
    case DialogItem::ComboBox: return {comboClass, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0};
    case DialogItem::ListBox:
        return {listClass, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                WS_EX_CLIENTEDGE};
    case DialogItem::TableList:
        return {listClass,
                WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS,
                WS_EX_CLIENTEDGE};
    case DialogItem::Icon: return {staticClass, SS_ICON | SS_REALSIZECONTROL, 0};
    case DialogItem::DefaultButton: return {buttonClass, WS_TABSTOP | BS_DEFPUSHBUTTON, 0};
    case DialogItem::Button:
    case DialogItem::CancelButton: break;
    }
    return {buttonClass, WS_TABSTOP | BS_PUSHBUTTON, 0};
}

class Writer {
public:
    template <class Value>
    void put(Value value) {
        const auto* first = reinterpret_cast<const BYTE*>(&value);
        bytes_.insert(bytes_.end(), first, first + sizeof value);
    }
    void putText(const wchar_t* text) {
        const std::size_t length = std::wcslen(text) + 1;
        for (std::size_t i = 0; i < length; ++i)
            put<WORD>(static_cast<WORD>(text[i]));
    }
    void align() {
        while (bytes_.size() % sizeof(DWORD) != 0)
            bytes_.push_back(0);
    }
    std::vector<BYTE> take() { return std::move(bytes_); }

private:
    std::vector<BYTE> bytes_;
};

struct DialogFont {
    WORD points = 8;
    WORD weight = FW_NORMAL;
    wchar_t face[LF_FACESIZE] = L"Tahoma";
};

DialogFont systemFont() {
    DialogFont font;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return font;
    const LOGFONTW& message = metrics.lfMessageFont;
    HDC screen = GetDC(nullptr);
    const int resolution = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    const int height = message.lfHeight < 0 ? -message.lfHeight : message.lfHeight;
    if (height > 0 && resolution > 0)
        font.points = static_cast<WORD>(MulDiv(height, 72, resolution));
    font.weight = static_cast<WORD>(message.lfWeight);
    std::memcpy(font.face, message.lfFaceName, sizeof font.face);
    return font;
}

void putHeader(Writer& out, const DialogLayout& layout) {
    out.put<WORD>(1);      // version of the template
    out.put<WORD>(0xFFFF); // says that it is the extended form
    out.put<DWORD>(0);     // help id
    out.put<DWORD>(WS_EX_DLGMODALFRAME);
    out.put<DWORD>(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_FIXEDSYS);
    out.put<WORD>(static_cast<WORD>(layout.controls.size()));
    out.put<short>(0);
    out.put<short>(0);
    out.put<short>(layout.width);
    out.put<short>(layout.height);
    out.put<WORD>(0); // no menu
    out.put<WORD>(0); // the ordinary dialog class
    out.putText(layout.caption);
    const DialogFont font = systemFont();
    out.put<WORD>(font.points);
    out.put<WORD>(font.weight);
    out.put<BYTE>(0); // upright
    out.put<BYTE>(DEFAULT_CHARSET);
    out.putText(font.face);
}

void putControl(Writer& out, const DialogControl& control) {
    const Kind kind = kindOf(control.item);
    out.align();
    out.put<DWORD>(0); // help id
    out.put<DWORD>(kind.extendedStyle);
    out.put<DWORD>(kind.style | WS_CHILD | WS_VISIBLE);
    out.put<short>(control.x);
    out.put<short>(control.y);
    out.put<short>(control.width);
    out.put<short>(control.height);
    out.put<DWORD>(static_cast<DWORD>(control.id));
    out.put<WORD>(0xFFFF); // the class is given by number
    out.put<WORD>(kind.windowClass);
    out.putText(control.caption);
    out.put<WORD>(0); // no creation data
}

} // namespace

std::vector<BYTE> dialogTemplate(const DialogLayout& layout) {
    Writer out;
    putHeader(out, layout);
    for (const DialogControl& control : layout.controls)
        putControl(out, control);
    return out.take();
}

} // namespace tollvane::com
