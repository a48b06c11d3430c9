#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

/// What buttons, check boxes and option buttons share: a press by the mouse or by a space that the
/// handlers let pass. Their states are kept here, so that only a press or the program changes them.
template <class Port>
class PressableOf : public CaptionedOf<Port> {
public:
    using CaptionedOf<Port>::CaptionedOf;

    void typed(int character, LPARAM info) final {
        if (character == ' ' && !isRepeated(info)) {
            this->press();
        }
    }
    void command(WORD code) final {
        if (code == BN_CLICKED && !takingFocus_) {
            this->press();
        }
    }

protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) final {
        const bool space = first == VK_SPACE;
        if (space && (message == WM_KEYDOWN || message == WM_KEYUP)) {
            return 0; // the character acts, not the key
        }
        if (message == WM_SETFOCUS) {
            // The system's option button counts the arriving focus as a click.
            takingFocus_ = true;
            const LRESULT answer = CaptionedOf<Port>::handle(message, first, second);
            takingFocus_ = false;
            return answer;
        }
        return CaptionedOf<Port>::handle(message, first, second);
    }

private:
    bool takingFocus_ = false;
};

class Win32Button final : public PressableOf<Button> {
public:
    Win32Button(FormCore& form, const ControlDescription& description);
    void press() override;
};

class Win32CheckBox final : public PressableOf<CheckBox> {
public:
    Win32CheckBox(FormCore& form, const ControlDescription& description);
    bool checked() const override { return checked_; }
    void setChecked(bool checked) override;
    bool isMarked() const override { return checked_; }
    void press() override { setChecked(!checked_); }

protected:
    void colourChanged() override;

private:
    bool checked_ = false;
};

class Win32OptionButton final : public PressableOf<OptionButton> {
public:
    Win32OptionButton(FormCore& form, const ControlDescription& description);
    bool selected() const override { return selected_; }
    void select() override;
    bool isMarked() const override { return selected_; }
    void press() override;

protected:
    void colourChanged() override;

private:
    void mark(bool selected);

    bool selected_ = false;
};

} // namespace tollvane::win32
