#pragma once

#include <windows.h>

#include <string>

namespace tollvane::win32 {

class FormCore;
class NativeControl;

/// The road of a typed key: the form's preview, the control's handlers, then what the control
/// itself does with it. The window procedures hand every key here before the system's own control
/// sees it. A null target is the form itself, which has the focus when no control has it.
class KeyRouting {
public:
    explicit KeyRouting(FormCore& form) : form_(form) {}

    /// A key went down. False ends its road here; otherwise `key` goes on to the system's control.
    bool keyDown(NativeControl* target, WPARAM& key, bool system);
    /// A character was typed; everything that it does is done here.
    void character(NativeControl* target, WPARAM character, LPARAM info);
    /// Alt + letter. True when a control has it as its access key.
    bool altCharacter(WPARAM character) const;

private:
    /// True when a handler closed the form or took the target out of use.
    bool isGone(const NativeControl* target) const;
    bool raiseKeyDown(NativeControl* target, WPARAM& key);
    /// The key that the character and what came before it make; 0 as long as a half is missing.
    int completed(WPARAM character);
    void enter(NativeControl* target) const;
    void pressNamed(const std::string& button) const;

    FormCore& form_;
    bool listWasOpen_ = false; ///< when the key went down, which may have closed it
    BYTE firstHalf_ = 0;       ///< of a character of two bytes, which come one after the other
};

/// True for a character that comes from holding its key down.
inline bool isRepeated(LPARAM info) {
    return (info & (1L << 30)) != 0;
}

} // namespace tollvane::win32
