#include "platform/win32/Win32TextBox.h"

#include "platform/Letters.h"
#include "platform/win32/CentredLine.h"
#include "platform/win32/Clipboard.h"
#include "platform/win32/FreedMemory.h"
#include "platform/win32/UsedStack.h"

#include <algorithm>
#include <array>

namespace tollvane::win32 {

namespace {

/// Control characters that the keyboard produces.
namespace typedcode {
constexpr int selectAll = 1; // Ctrl + A
constexpr int copy = 3;      // Ctrl + C
constexpr int backspace = 8;
constexpr int paste = 22; // Ctrl + V
constexpr int cut = 24;   // Ctrl + X
constexpr int undo = 26;  // Ctrl + Z
constexpr int firstPrintable = 32;
constexpr int controlBackspace = 127;
} // namespace typedcode

/// Characters of a text that is changed piece by piece: what the system keeps of a piece in freed
/// memory tells nothing.
constexpr std::size_t longestPiece = 4;

/// Characters beyond the text's own that the undo buffer may hold of an earlier one.
constexpr std::size_t longestUndone = 40;

/// Keys of which an edit control only wants the character.
bool bringsACharacterOnly(WPARAM key) {
    return key == VK_SPACE || (key >= '0' && key <= 'Z') ||
           (key >= VK_NUMPAD0 && key <= VK_DIVIDE) || (key >= VK_OEM_1 && key <= VK_OEM_102);
}

/// True where characters may have two bytes.
bool hasLongCharacters() {
    CPINFO page{};
    return GetCPInfo(CP_ACP, &page) != FALSE && page.MaxCharSize > 1;
}

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

/// Text for a call that wants a closing NUL; wiped when it is done with.
class ClosedText {
public:
    explicit ClosedText(std::string_view text) : bytes_(text.size() + 1) {
        std::copy(text.begin(), text.end(), bytes_.begin());
    }
    ClosedText(const ClosedText&) = delete;
    ClosedText& operator=(const ClosedText&) = delete;
    ~ClosedText() { wipeMemory(bytes_.data(), bytes_.size()); }

    LPARAM argument() const { return reinterpret_cast<LPARAM>(bytes_.data()); }

private:
    std::vector<char> bytes_;
};

} // namespace

Win32TextBox::Win32TextBox(FormCore& form, const ControlDescription& description)
    : ControlOf(form, description), isMasked_(description.masked) {
    const DWORD style = WS_TABSTOP | ES_AUTOHSCROLL |
                        (description.rightAligned ? static_cast<DWORD>(ES_RIGHT) : 0) |
                        (description.masked ? static_cast<DWORD>(ES_PASSWORD) : 0);
    createWindow("EDIT", std::string(description.caption).c_str(), style, WS_EX_CLIENTEDGE);
    if (isMasked_) {
        growBuffer();
    }
    // The length of what is typed is watched by insertTyped.
    native(EM_SETLIMITTEXT, kDefaultMaxLength, 0);
}

void Win32TextBox::growBuffer() {
    constexpr std::size_t longestTracks = 640;
    const SecretText caption = secretText();
    native(WM_SETTEXT, 0, ClosedText(std::string(longestTracks, 'x')).argument());
    native(WM_SETTEXT, 0, ClosedText(caption.view()).argument());
    native(EM_EMPTYUNDOBUFFER, 0, 0);
}

SecretText Win32TextBox::secretText() const {
    const auto length = static_cast<std::size_t>(native(WM_GETTEXTLENGTH, 0, 0));
    std::vector<char> buffer(length + 1);
    const auto got = static_cast<std::size_t>(
        native(WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data())));
    SecretText text({buffer.data(), std::min(got, length)});
    wipeMemory(buffer.data(), buffer.size());
    return text;
}

std::string Win32TextBox::text() const {
    return std::string(secretText().view());
}

void Win32TextBox::setText(std::string_view text) {
    if (isMasked_) {
        setInPieces(text);
    } else {
        send(WM_SETTEXT, 0, ClosedText(text).argument());
    }
}

void Win32TextBox::setInPieces(std::string_view text) {
    const SecretText before = secretText();
    if (before.view() == text) {
        return;
    }
    std::size_t at = before.size();
    if (!text.starts_with(before.view())) {
        overwriteText();
        at = 0;
    }
    while (at < text.size()) {
        const std::string_view rest = text.substr(at);
        const std::string_view piece = rest.substr(0, wholeCharacters(rest, longestPiece));
        native(EM_SETSEL, at, static_cast<LPARAM>(at));
        native(EM_REPLACESEL, FALSE, ClosedText(piece).argument());
        at += piece.size();
    }
    native(EM_SETSEL, 0, 0);
    raise(on.change);
}

LRESULT Win32TextBox::edited(UINT message, WPARAM first, LPARAM second) {
    const SecretText before = secretText();
    const LRESULT answer = native(message, first, second);
    const bool changed = window() && secretText() != before;
    const bool isKey = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    // The same text once more is shaped anew, but not after a key like Shift.
    const bool freed = changed || !(isKey || before.empty());
    if (freed && !isMasked_) {
        // Its shaping of the old text is freed now: what is allocated next must not take that up.
        wipeFreedMemory();
    }
    if (changed) {
        raise(on.change);
    }
    return answer;
}

void Win32TextBox::wipeText() {
    const auto length = static_cast<std::size_t>(native(WM_GETTEXTLENGTH, 0, 0));
    // What the operator deleted by hand is not in the box any more, but can be brought back.
    if (length == 0 && native(EM_CANUNDO, 0, 0) == 0) {
        return;
    }
    overwriteText();
    if (length > 0) {
        raise(on.change);
    }
}

void Win32TextBox::overwriteText() {
    const auto length = static_cast<std::size_t>(native(WM_GETTEXTLENGTH, 0, 0));
    native(WM_SETTEXT, 0, ClosedText(std::string(length + longestUndone, 'x')).argument());
    // Emptied first, or it would put the fillers beside what it holds.
    native(EM_EMPTYUNDOBUFFER, 0, 0);
    native(EM_SETSEL, 0, -1);
    // As an undoable change, so that the undo buffer takes the fillers in.
    native(EM_REPLACESEL, TRUE, ClosedText("").argument());
    native(EM_EMPTYUNDOBUFFER, 0, 0);
    wipeUsedStack();
    // Whole copies of the text are there now.
    wipeFreedMemory();
}

int Win32TextBox::selStart() const {
    DWORD start = 0;
    DWORD end = 0;
    native(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return bytesBefore(start);
}

int Win32TextBox::selLength() const {
    DWORD start = 0;
    DWORD end = 0;
    native(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return bytesBefore(end) - bytesBefore(start);
}

void Win32TextBox::select(int start, int length) {
    native(EM_SETSEL, static_cast<WPARAM>(positionOf(start)),
           length < 0 ? -1 : positionOf(start + length));
}

int Win32TextBox::bytesBefore(DWORD position) const {
    if (position == 0 || !hasLongCharacters()) {
        return static_cast<int>(position);
    }
    const SecretText text = secretText();
    std::size_t bytes = 0;
    for (; position > 0 && bytes < text.size(); --position) {
        bytes += characterLength(text.view().substr(bytes));
    }
    return static_cast<int>(bytes);
}

int Win32TextBox::positionOf(int bytes) const {
    if (bytes <= 0 || !hasLongCharacters()) {
        return bytes;
    }
    const SecretText text = secretText();
    const std::size_t wanted = std::min(static_cast<std::size_t>(bytes), text.size());
    int position = 0;
    for (std::size_t at = 0; at < wanted; ++position) {
        at += characterLength(text.view().substr(at));
    }
    return position;
}

std::uint32_t Win32TextBox::windowStyle() const {
    return static_cast<std::uint32_t>(GetWindowLongA(window(), GWL_STYLE));
}

std::uint32_t Win32TextBox::setWindowStyle(std::uint32_t style) {
    return static_cast<std::uint32_t>(
        SetWindowLongA(window(), GWL_STYLE, static_cast<LONG>(style)));
}

void Win32TextBox::colourChanged() {
    ControlOf::colourChanged();
    RedrawWindow(window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

void Win32TextBox::lockedChanged() {
    native(EM_SETREADONLY, locked_, 0);
}

int Win32TextBox::room() const {
    const auto length = hasLongCharacters() ? static_cast<int>(secretText().size())
                                            : static_cast<int>(native(WM_GETTEXTLENGTH, 0, 0));
    return std::max(0, maxLength_ - (length - selLength()));
}

void Win32TextBox::typed(int character, LPARAM info) {
    switch (character) {
    case typedcode::copy: send(WM_COPY); return;
    case typedcode::selectAll: select(0, -1); return;
    case typedcode::paste: send(WM_PASTE); return;
    case typedcode::cut: send(WM_CUT); return;
    case typedcode::undo: send(WM_UNDO); return;
    case typedcode::backspace: edited(WM_CHAR, typedcode::backspace, info); return;
    default: break;
    }
    if (character >= typedcode::firstPrintable && character != typedcode::controlBackspace) {
        insertTyped(character, info);
    }
}

void Win32TextBox::insertTyped(int character, LPARAM info) {
    const std::uint32_t style = windowStyle();
    const bool digit = character >= '0' && character <= '9';
    const int length = character > kLargestByte ? 2 : 1;
    if (locked_ || room() < length || ((style & editstyle::digitsOnly) && !digit)) {
        return;
    }
    if (length > 1) {
        // Both halves at once, or there would be a moment with half a character.
        edited(EM_REPLACESEL, TRUE, ClosedText(typedBytes(character)).argument());
        return;
    }
    std::array<char, 2> text{static_cast<char>(character), '\0'};
    if (style & editstyle::upperCase) {
        CharUpperBuffA(text.data(), 1);
    } else if (style & editstyle::lowerCase) {
        CharLowerBuffA(text.data(), 1);
    }
    edited(WM_CHAR, static_cast<unsigned char>(text[0]), info);
}

void Win32TextBox::insertPasted() {
    if (locked_) {
        return;
    }
    std::string text = clipboardText(window());
    if (on.paste) {
        form().ui().guarded([&] { on.paste(text); });
    }
    text.resize(std::min(text.find_first_of("\r\n"), text.size()));
    text.resize(wholeCharacters(text, static_cast<std::size_t>(room())));
    if (!text.empty()) {
        edited(EM_REPLACESEL, TRUE, ClosedText(text).argument());
    }
    wipe(text);
}

LRESULT Win32TextBox::keyDown(UINT message, WPARAM key, LPARAM info) {
    // Their characters do the work, so that a dropped character drops it too.
    const bool lettered = key == 'A' || key == 'C' || key == 'V' || key == 'X' || key == 'Z';
    if (lettered && isDown(VK_CONTROL)) {
        return 0;
    }
    if (key == VK_INSERT && (isDown(VK_CONTROL) || isDown(VK_SHIFT))) {
        return send(isDown(VK_SHIFT) ? WM_PASTE : WM_COPY);
    }
    if (key == VK_DELETE && isDown(VK_SHIFT)) {
        return send(WM_CUT);
    }
    if (message == WM_KEYDOWN && bringsACharacterOnly(key)) {
        return 0;
    }
    return edited(message, key, info);
}

LRESULT Win32TextBox::handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN: return keyDown(message, first, second);
    case WM_NCCALCSIZE: {
        const LRESULT answer = ControlOf::handle(message, first, second);
        // The rectangle stands first in either form of the message.
        centreLine(window(), *reinterpret_cast<RECT*>(second)); // NOLINT(performance-no-int-to-ptr)
        return answer;
    }
    case WM_NCPAINT: {
        const LRESULT answer = ControlOf::handle(message, first, second);
        paintAroundLine(window(), backBrush());
        return answer;
    }
    case WM_PASTE: insertPasted(); return 0;
    case WM_CUT:
    case WM_CLEAR:
    case WM_UNDO:
    case EM_UNDO: return locked_ ? 0 : edited(message, first, second);
    case WM_SETTEXT:
    case EM_REPLACESEL: return edited(message, first, second);
    default: return ControlOf::handle(message, first, second);
    }
}

} // namespace tollvane::win32
