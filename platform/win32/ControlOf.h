#pragma once

#include "platform/win32/NativeControl.h"

namespace tollvane::win32 {

/// A control's port on top of its window.
template <class Port>
class ControlOf : public Port, public NativeControl {
public:
    using NativeControl::NativeControl;

    Control& port() final { return *this; }

    const std::string& name() const override { return controlName(); }
    int index() const override { return arrayIndex(); }
    ControlKind kind() const override { return NativeControl::kind(); }

    bool enabled() const override { return enabled_; }
    void setEnabled(bool enabled) override { setEnabledState(enabled); }
    bool visible() const override { return has(Property::visible) && visible_; }
    void setVisible(bool visible) override {
        if (has(Property::visible)) {
            setVisibleState(visible);
        }
    }
    bool tabStop() const override { return has(Property::tabStop) && tabStop_; }
    void setTabStop(bool tabStop) override {
        if (has(Property::tabStop)) {
            tabStop_ = tabStop;
        }
    }
    bool locked() const override { return has(Property::locked) && locked_; }
    void setLocked(bool locked) override {
        if (has(Property::locked) && locked_ != locked) {
            locked_ = locked;
            lockedChanged();
        }
    }
    const std::string& tag() const override { return tag_; }
    void setTag(const std::string& tag) override { tag_ = tag; }
    const std::string& toolTip() const override {
        has(Property::toolTip);
        return toolTip_;
    }
    void setToolTip(const std::string& toolTip) override {
        if (has(Property::toolTip) && toolTip_ != toolTip) {
            toolTip_ = toolTip;
            form().toolTips.update(*this);
        }
    }
    Colour foreColour() const override {
        has(Property::foreColour);
        return fore_;
    }
    void setForeColour(Colour colour) override {
        if (has(Property::foreColour) && fore_ != colour) {
            fore_ = colour;
            colourChanged();
        }
    }
    Colour backColour() const override {
        has(Property::backColour);
        return back_;
    }
    void setBackColour(Colour colour) override {
        if (has(Property::backColour) && back_ != colour) {
            back_ = colour;
            colourChanged();
        }
    }
    Bounds bounds() const override {
        has(Property::bounds);
        return bounds_;
    }
    void setBounds(const Bounds& bounds) override {
        if (has(Property::bounds) && bounds_ != bounds) {
            bounds_ = bounds;
            place();
        }
    }
    void setFocus() override {
        has(Property::focus);
        if (!canTakeFocus()) {
            throw Error(errornumber::invalidProcedureCall, controlName(),
                        "Invalid procedure call or argument");
        }
        form().focus.moveTo(*this);
    }
    bool hasFocus() const override { return form().focus.active() == this; }

private:
    /// True, or the raised error that says that this kind has no such property.
    bool has(Property property) const {
        demand(NativeControl::kind(), property, controlName());
        return true;
    }
};

/// A control with a caption.
template <class Port>
class CaptionedOf : public ControlOf<Port> {
public:
    CaptionedOf(FormCore& form, const ControlDescription& description)
        : ControlOf<Port>(form, description), caption_(description.caption) {}

    const std::string& captionText() const final { return caption_; }
    std::string caption() const override { return caption_; }
    void setCaption(const std::string& caption) override {
        if (caption_ != caption) {
            caption_ = caption;
            SetWindowTextA(this->window(), caption_.c_str());
        }
    }

private:
    std::string caption_;
};

} // namespace tollvane::win32
