#pragma once

#include "platform/Form.h"
#include "platform/win32/ControlProperties.h"
#include "platform/win32/FormCore.h"
#include "platform/win32/Handles.h"

#include <string>

namespace tollvane::win32 {

/// The window behind a control, and what every kind of control has in common. The port of the
/// control stands on top of it (ControlOf).
class NativeControl {
public:
    NativeControl(FormCore& form, const ControlDescription& description);
    NativeControl(const NativeControl&) = delete;
    NativeControl& operator=(const NativeControl&) = delete;
    virtual ~NativeControl() = default;

    virtual Control& port() = 0;
    ControlEvents& events() { return port().on; }

    const std::string& controlName() const { return name_; }
    int arrayIndex() const { return index_; }
    ControlKind kind() const { return kind_; }
    /// Null for a timer, and once the form has been closed.
    HWND window() const { return window_; }
    void forgetWindow() { window_ = nullptr; }
    const std::string& toolTipText() const { return toolTip_; }
    Bounds placeInForm() const { return bounds_; }

    bool takesFocus() const { return offers(kind_, Property::focus); }
    bool isShown() const { return visible_; }
    bool isShownAndEnabled() const { return enabled_ && visible_; }
    bool canTakeFocus() const { return takesFocus() && isShownAndEnabled(); }
    bool isTabStop() const { return tabStop_; }
    bool causesValidation() const { return causesValidation_; }

    /// The form became wider and taller by so many design units.
    void follow(int wider, int taller);

    /// The caption with its access key; empty where the kind has none.
    virtual const std::string& captionText() const;
    /// True for the selected option button and the ticked check box.
    virtual bool isMarked() const { return false; }
    /// True while Enter and Escape are the control's own (an open list).
    virtual bool keepsEnterAndEscape() const { return false; }
    /// What the control itself does with a typed character, after every handler has passed it.
    virtual void typed(int /*character*/, LPARAM /*info*/) {}
    /// Space, an access key or an arrow key.
    virtual void press() {}
    /// A notification of the system's control.
    virtual void command(WORD /*code*/) {}
    /// A timer's time has come.
    virtual void timerRang() {}

    /// Moves the window to its bounds at the form's DPI.
    virtual void place();
    void applyFont();
    /// Colours for the system's control to paint with; null leaves them to the system.
    virtual HBRUSH colours(HDC context);

    /// Called for every message of the control's window.
    LRESULT received(UINT message, WPARAM first, LPARAM second);

protected:
    void createWindow(const char* className, const char* text, DWORD style, DWORD extended = 0);
    /// A message on its way to the system's control; a kind looks at those that concern it.
    virtual LRESULT handle(UINT message, WPARAM first, LPARAM second);
    /// The system's control's own doing.
    LRESULT native(UINT message, WPARAM first, LPARAM second) const;
    LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const;
    void raise(const std::function<void()>& handler);

    FormCore& form() const { return form_; }

    HBRUSH backBrush();
    void setEnabledState(bool enabled);
    void setVisibleState(bool visible);
    virtual void lockedChanged() {}
    virtual void colourChanged();

    bool enabled_ = true;
    bool visible_;
    bool tabStop_ = true;
    bool locked_ = false;
    bool bold_;
    std::string tag_;
    std::string toolTip_;
    Colour fore_;
    Colour back_;
    Bounds bounds_;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    bool mouseDown();

    FormCore& form_;
    std::string name_;
    int index_;
    ControlKind kind_;
    Follow follow_;
    bool causesValidation_;
    HWND window_ = nullptr; ///< destroyed with the form's window
    WNDPROC native_ = nullptr;
    BrushHandle backBrush_;
};

} // namespace tollvane::win32
