#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"

#include <cstddef>
#include <string>
#include <utility>

namespace tollvane::test {

class MemoryForm;

/// The properties that not every kind of control has.
enum class Property { visible, tabStop, locked, toolTip, foreColour, backColour, bounds, focus };

bool has(ControlKind kind, Property property);

/// What every in-memory control is made of, and what a user can do to it. The keys and clicks that
/// arrive here have already passed the handlers.
class ControlCore {
public:
    ControlCore(MemoryForm& form, const ControlDescription& description);
    ControlCore(const ControlCore&) = delete;
    ControlCore& operator=(const ControlCore&) = delete;
    virtual ~ControlCore() = default;

    virtual Control& control() = 0;
    ControlEvents& events() { return control().on; }

    virtual void pressed() {}                               ///< by mouse, access key or a space
    virtual void character(int /*ascii*/) {}                ///< typed, after key-press
    virtual void command(int /*keyCode*/, int /*shift*/) {} ///< a key without a character
    virtual void pasted(const std::string& /*text*/) {}
    virtual void clicked() { pressed(); } ///< by mouse, once the focus is here
    virtual void enabledChanged() {}
    virtual std::string captionText() const { return {}; }

    bool takesFocus() const { return has(kind, Property::focus); }
    bool usable() const { return enabled && visible; }
    bool canTakeFocus() const { return takesFocus() && usable(); }
    /// Raises 438 when this kind of control lacks the property.
    void require(Property property) const;
    /// Comes before every change that a handler makes; a planned failure is raised here.
    void changing(const char* what) const;
    /// Runs one of the control's handlers.
    template <class Handler, class... Arguments>
    void raise(const char* event, const Handler& handler, Arguments&&... arguments);

    MemoryForm& owner;
    std::string name;
    int index = -1;
    ControlKind kind;
    bool enabled = true;
    bool visible = true;
    bool tabStop = true;
    bool locked = false;
    bool causesValidation = true; ///< a user who goes here has the control that is left validated
    Follow follow;
    std::string tag;
    std::string toolTip;
    Colour foreColour = Colour::System::buttonText;
    Colour backColour = Colour::System::buttonFace;
    Bounds bounds;
    std::size_t position = 0; ///< in the form's table
    bool focused = false;     ///< has been told that it has the focus

    void setEnabled(bool value);
    void setVisible(bool value);
    void setFocus();
    bool isActive() const;

private:
    void run(const char* event, const std::function<void()>& body);
};

template <class Handler, class... Arguments>
void ControlCore::raise(const char* event, const Handler& handler, Arguments&&... arguments) {
    if (handler) {
        run(event, [&] { handler(std::forward<Arguments>(arguments)...); });
    }
}

/// The Control part of an interface, served by the core.
template <class Interface>
class MemoryControl : public Interface, public ControlCore {
public:
    using ControlCore::ControlCore;

    Control& control() override { return *this; }
    const std::string& name() const override { return ControlCore::name; }
    int index() const override { return ControlCore::index; }
    ControlKind kind() const override { return ControlCore::kind; }
    bool enabled() const override { return ControlCore::enabled; }
    void setEnabled(bool value) override { ControlCore::setEnabled(value); }
    bool visible() const override { return get(Property::visible, ControlCore::visible); }
    void setVisible(bool value) override { ControlCore::setVisible(value); }
    bool tabStop() const override { return get(Property::tabStop, ControlCore::tabStop); }
    void setTabStop(bool value) override {
        set(Property::tabStop, "setTabStop", ControlCore::tabStop, value);
    }
    bool locked() const override { return get(Property::locked, ControlCore::locked); }
    void setLocked(bool value) override {
        set(Property::locked, "setLocked", ControlCore::locked, value);
    }
    const std::string& tag() const override { return ControlCore::tag; }
    void setTag(const std::string& tag) override { ControlCore::tag = tag; }
    const std::string& toolTip() const override {
        return get(Property::toolTip, ControlCore::toolTip);
    }
    void setToolTip(const std::string& tip) override {
        set(Property::toolTip, "setToolTip", ControlCore::toolTip, tip);
    }
    Colour foreColour() const override {
        return get(Property::foreColour, ControlCore::foreColour);
    }
    void setForeColour(Colour colour) override {
        set(Property::foreColour, "setForeColour", ControlCore::foreColour, colour);
    }
    Colour backColour() const override {
        return get(Property::backColour, ControlCore::backColour);
    }
    void setBackColour(Colour colour) override {
        set(Property::backColour, "setBackColour", ControlCore::backColour, colour);
    }
    Bounds bounds() const override { return get(Property::bounds, ControlCore::bounds); }
    void setBounds(const Bounds& bounds) override {
        set(Property::bounds, "setBounds", ControlCore::bounds, bounds);
    }
    void setFocus() override { ControlCore::setFocus(); }
    bool hasFocus() const override { return isActive(); }

private:
    template <class Value>
    const Value& get(Property property, const Value& value) const {
        require(property);
        return value;
    }
    template <class Value>
    void set(Property property, const char* what, Value& target, const Value& value) {
        require(property);
        changing(what);
        target = value;
    }
};

/// A control with a caption.
template <class Interface>
class MemoryCaptioned : public MemoryControl<Interface> {
public:
    MemoryCaptioned(MemoryForm& form, const ControlDescription& description)
        : MemoryControl<Interface>(form, description), caption_(description.caption) {}

    std::string caption() const override { return caption_; }
    void setCaption(const std::string& caption) override {
        this->changing("setCaption");
        caption_ = caption;
    }
    std::string captionText() const override { return caption_; }

private:
    std::string caption_;
};

} // namespace tollvane::test
