#pragma once

#include "platform/Controls.h"
#include "platform/Error.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace tollvane {

/// The handle of a window as other programs and components get it; 0 is none.
using WindowNumber = std::int32_t;

/// How a control follows the lower right corner of a form that is made larger.
struct Follow {
    bool moveRight = false;
    bool moveDown = false;
    bool growRight = false;
    bool growDown = false;
};

/// One row of a form's table. The order of the rows is the order of creation and of tabbing; a
/// label stands right before the control that it names.
struct ControlDescription {
    ControlKind kind = ControlKind::label;
    std::string_view name;
    int index = -1;             ///< place in a control array
    std::string_view caption{}; ///< or the first text of a text box
    Bounds at{};
    std::string_view toolTip{};
    std::string_view tag{};
    bool visible = true;
    bool rightAligned = false; ///< label, text box
    bool bold = false;
    bool masked = false; ///< text box that shows bullets
    int interval = 0;    ///< timer: milliseconds; timers start disabled
    Follow follow{};
    bool causesValidation = true; ///< button: leaving another control towards it validates that one
};

struct MenuDescription {
    int level = 0; ///< 0 stands in the bar, 1 below it, 2 in a submenu
    std::string_view name;
    std::string_view caption; ///< "-" is a separator
    bool visible = true;      ///< a hidden level-0 menu is used as a pop-up
};

struct PanelDescription {
    std::string_view key;
    int width = 0; ///< design units; 0 takes the rest
};

/// The look of a form, in one place.
struct FormDescription {
    std::string_view name;
    std::string_view caption;
    int width = 0; ///< client area, design units
    int height = 0;
    std::span<const ControlDescription> controls;
    std::span<const MenuDescription> menus{};
    std::span<const PanelDescription> panels{};
    std::string_view defaultButton{}; ///< pressed by Enter; none: Enter presses nothing at all
    std::string_view cancelButton{};  ///< pressed by Escape; none: Escape does nothing
    bool resizable = false;           ///< the described size is the smallest
    bool dialog = false;              ///< no minimise button, no place in the task bar
};

enum class MousePointer { standard = 0, hourglass = 11 };
enum class WindowState { normal, minimised, maximised };

struct FormEvents {
    std::function<void()> load;        ///< once, before the form is first shown
    std::function<void()> activate;    ///< each time the form becomes the active window
    std::function<void()> unload;      ///< once, while the controls still exist
    std::function<void()> doubleClick; ///< on the form's background
    std::function<void(int& keyCode, int shift)> keyDown; ///< before the control's own
    std::function<void(int& keyAscii)> keyPress;          ///< before the control's own
};

/// A top-level window with the controls of its description.
class Form {
public:
    Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    /// A control by name (and place in its array). Raises 730 when there is none, 13 when it is of
    /// another kind than `Kind`.
    template <class Kind>
    Kind& control(std::string_view name, int index = -1) {
        if (auto* found = dynamic_cast<Kind*>(&find(name, index))) {
            return *found;
        }
        throw Error(errornumber::typeMismatch, std::string(name), "Type mismatch");
    }
    virtual Control& find(std::string_view name, int index = -1) = 0;
    /// Every control, menu items included, in the order of the description.
    virtual std::span<Control* const> controls() = 0;
    /// The control that has the focus, or null.
    virtual Control* activeControl() = 0;

    /// The window's handle; 0 once the form has been closed.
    virtual WindowNumber handle() const = 0;
    virtual std::string caption() const = 0;
    virtual void setCaption(const std::string& caption) = 0;
    virtual int left() const = 0;             ///< twips
    virtual int top() const = 0;              ///< twips
    virtual void move(int left, int top) = 0; ///< twips
    virtual WindowState windowState() const = 0;
    virtual MousePointer mousePointer() const = 0;
    virtual void setMousePointer(MousePointer pointer) = 0;
    /// The form's keyPress and keyDown are raised only when this is on.
    virtual void setKeyPreview(bool on) = 0;

    virtual void show() = 0;
    /// Shows the form and returns when it has been closed. `owner` may be null.
    virtual void showModal(Form* owner) = 0;
    virtual bool isOpen() const = 0;
    /// Raises unload and ends the window. The form object lives on, closed.
    virtual void close() = 0;
    /// Opens a hidden level-0 menu at the mouse position.
    virtual void popUpMenu(std::string_view menuName) = 0;
    /// Puts the caption bar, borders and controls on the screen now.
    virtual void refresh() = 0;

    FormEvents on;
};

class Forms {
public:
    virtual ~Forms() = default;
    /// Builds the window and its controls, hidden.
    virtual std::unique_ptr<Form> create(const FormDescription& description) = 0;
};

} // namespace tollvane
