#pragma once

#include "platform/Form.h"
#include "platform/win32/Dpi.h"
#include "platform/win32/Focus.h"
#include "platform/win32/KeyRouting.h"
#include "platform/win32/Navigation.h"
#include "platform/win32/ToolTips.h"
#include "platform/win32/Ui.h"
#include "platform/win32/UiFonts.h"

#include <memory>
#include <string>
#include <vector>

namespace tollvane::win32 {

class NativeControl;

/// Posted by a form to itself when it has become the active window.
inline constexpr UINT kActivated = WM_APP + 1;

/// What the parts of one form share: its window, its controls in the order of the table, its fonts,
/// and the objects that lead focus and keys.
class FormCore {
public:
    FormCore(Ui& ui, FormEvents& events, const FormDescription& description);
    FormCore(const FormCore&) = delete;
    FormCore& operator=(const FormCore&) = delete;
    ~FormCore();

    Ui& ui() const { return ui_; }
    FormEvents& on() const { return on_; }
    const std::string& name() const { return name_; }

    /// The form became the active window; its handler runs as soon as the system is done with that.
    void activated();
    /// Runs that handler now if it is due.
    void deliverActivation();

    /// Null once the form has been closed.
    HWND window() const { return window_; }
    void setWindow(HWND window);
    bool isActive() const { return window_ && GetActiveWindow() == window_; }

    int dpi() const { return dpi_; }
    HFONT font(bool bold) const { return bold ? fonts_->bold() : fonts_->regular(); }
    /// Takes over a new DPI: fonts, places and tool tips of everything.
    void setDpi(int dpi);
    /// Bounds in pixels.
    RECT pixels(const Bounds& bounds) const;
    /// The client area got a new size: moves and grows the controls that follow it.
    void resized();
    /// Moves every control to its place.
    void layOut();

    void add(std::unique_ptr<NativeControl> control);
    const std::vector<std::unique_ptr<NativeControl>>& controls() const { return controls_; }
    /// The control of a child window, or null.
    NativeControl* controlOf(HWND child) const;
    /// The first control of that name, or null.
    NativeControl* controlNamed(std::string_view name) const;

    bool keyPreview = false;
    MousePointer pointer = MousePointer::standard;
    const bool resizable;
    const std::string defaultButton;
    const std::string cancelButton;
    Focus focus{*this};
    Navigation navigation{*this};
    KeyRouting keys{*this};
    ToolTips toolTips{*this};

private:
    Ui& ui_;
    FormEvents& on_;
    std::string name_;
    int width_; ///< of the client area, design units
    int height_;
    HWND window_ = nullptr;
    bool activationDue_ = false;
    int dpi_;
    std::unique_ptr<UiFonts> fonts_;
    std::vector<std::unique_ptr<NativeControl>> controls_;
};

} // namespace tollvane::win32
