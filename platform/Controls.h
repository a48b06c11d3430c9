#pragma once

#include "platform/SecretText.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tollvane {

enum class ControlKind {
    label,
    textBox,
    comboBox,
    checkBox,
    optionButton,
    button,
    frame,
    timer,
    statusBar,
    picture,
    menuItem
};

/// A colour: one of the system's or red-green-blue.
class Colour {
public:
    enum class System { windowText, window, greyText, buttonFace, buttonText };

    constexpr Colour(System which) : system_(true), which_(which) {} // NOLINT(*-explicit-*)
    static constexpr Colour rgb(int red, int green, int blue) {
        return Colour(static_cast<std::uint32_t>(red | green << 8 | blue << 16));
    }
    constexpr bool isSystem() const { return system_; }
    constexpr System system() const { return which_; }
    /// 0x00BBGGRR; meaningful when not a system colour.
    constexpr std::uint32_t value() const { return value_; }
    friend constexpr bool operator==(const Colour&, const Colour&) = default;

private:
    explicit constexpr Colour(std::uint32_t value) : value_(value) {}
    bool system_ = false;
    System which_ = System::windowText;
    std::uint32_t value_ = 0;
};

/// Place inside the form's client area, in design units: 1/96 inch, scaled with the DPI.
struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Bounds&, const Bounds&) = default;
};

/// Shift state of a key-down: a sum of these.
namespace shiftmask {
inline constexpr int shift = 1;
inline constexpr int control = 2;
inline constexpr int alt = 4;
} // namespace shiftmask

/// Handlers of a control; an empty slot is an event that nobody handles. A slot is only ever filled
/// while the form is being built.
struct ControlEvents {
    std::function<void()> click;  ///< button, check box, option button, list choice, menu item
    std::function<void()> change; ///< text box
    std::function<void()> gotFocus;
    std::function<void()> lostFocus;
    std::function<void()> timer;
    std::function<void(bool& cancel)> validate;           ///< before the focus leaves
    std::function<void(int& keyCode, int shift)> keyDown; ///< set the code to 0 to drop the key
    std::function<void(int& keyAscii)> keyPress;          ///< change it, or 0 to drop the key
    std::function<void(std::string& text)> paste;         ///< change it, or empty to refuse
};

/// What every control has. A property that a kind of control lacks raises 438.
class Control {
public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    virtual const std::string& name() const = 0;
    /// Place in its control array, or -1.
    virtual int index() const = 0;
    virtual ControlKind kind() const = 0;

    virtual bool enabled() const = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    virtual bool tabStop() const = 0;
    virtual void setTabStop(bool tabStop) = 0;
    virtual bool locked() const = 0; ///< text box and combo box only
    virtual void setLocked(bool locked) = 0;
    virtual const std::string& tag() const = 0;
    virtual void setTag(const std::string& tag) = 0;
    virtual const std::string& toolTip() const = 0;
    virtual void setToolTip(const std::string& toolTip) = 0;
    virtual Colour foreColour() const = 0;
    virtual void setForeColour(Colour colour) = 0;
    virtual Colour backColour() const = 0;
    virtual void setBackColour(Colour colour) = 0;
    virtual Bounds bounds() const = 0;
    virtual void setBounds(const Bounds& bounds) = 0;
    /// Moves the focus here, without asking the validation of the control that it leaves.
    /// Raises 5 when the control is disabled or hidden.
    virtual void setFocus() = 0;
    virtual bool hasFocus() const = 0;

    ControlEvents on;
};

/// A caption: label, check box, option button, button, frame. "&" marks the access key.
class Captioned : public Control {
public:
    virtual std::string caption() const = 0;
    virtual void setCaption(const std::string& caption) = 0;
};

using Label = Captioned;
using Frame = Captioned;
using Button = Captioned;
using Picture = Control;

/// A single-line text box. Lengths and positions count characters of the 8-bit text.
class TextBox : public Control {
public:
    virtual std::string text() const = 0;
    /// Raises change when the text differs. Not cut to the maximum length. Clears the selection.
    virtual void setText(std::string_view text) = 0;
    /// The text as card data.
    virtual SecretText secretText() const = 0;
    /// Overwrites what the control itself remembers of its text, then empties it (raises change
    /// when there was a text).
    virtual void wipeText() = 0;
    /// Longest text that can be typed; 0 accepts no character.
    virtual int maxLength() const = 0;
    virtual void setMaxLength(int length) = 0;
    virtual int selStart() const = 0;
    virtual int selLength() const = 0;
    /// A negative length selects from `start` to the end.
    virtual void select(int start, int length) = 0;
    /// The edit control's window style; 0 when it cannot be read.
    virtual std::uint32_t windowStyle() const = 0;
    /// Returns the style before the change, or 0.
    virtual std::uint32_t setWindowStyle(std::uint32_t style) = 0;
};

/// Edit styles that shape what can be typed.
namespace editstyle {
inline constexpr std::uint32_t upperCase = 0x0008;
inline constexpr std::uint32_t lowerCase = 0x0010;
inline constexpr std::uint32_t digitsOnly = 0x2000;
} // namespace editstyle

/// A drop-down list; every entry carries a number of its own.
class ComboBox : public Control {
public:
    virtual void clear() = 0;
    virtual void addItem(const std::string& text, std::int32_t itemData) = 0;
    virtual int count() const = 0;
    virtual std::string itemText(int index) const = 0;  ///< 381 out of range
    virtual std::int32_t itemData(int index) const = 0; ///< 381 out of range
    virtual int listIndex() const = 0;                  ///< -1: no selection
    /// Raises click when another entry becomes selected; -1 clears the selection without a click.
    /// Raises 380 when there is no such entry.
    virtual void setListIndex(int index) = 0;
    /// Text of the selected entry, empty when there is none.
    virtual std::string text() const = 0;
};

class CheckBox : public Captioned {
public:
    virtual bool checked() const = 0;
    /// Raises click when the state differs.
    virtual void setChecked(bool checked) = 0;
};

/// One button of an array of which at most one is selected.
class OptionButton : public Captioned {
public:
    virtual bool selected() const = 0;
    /// Selects this one of its array and raises click unless it was selected before.
    virtual void select() = 0;
};

/// Enabled again while it runs, it starts its time anew.
class Timer : public Control {
public:
    virtual int interval() const = 0; ///< milliseconds
    virtual void setInterval(int milliseconds) = 0;
};

class StatusBar : public Control {
public:
    virtual std::string panelText(std::string_view key) const = 0; ///< 35601 for an unknown key
    virtual void setPanelText(std::string_view key, const std::string& text) = 0;
    /// Repaints at once.
    virtual void refresh() = 0;
};

class MenuItem : public Captioned {
public:
    virtual bool checked() const = 0;
    virtual void setChecked(bool checked) = 0;
};

} // namespace tollvane
