#pragma once

#include "tests/desktop/memory/ControlCore.h"

#include <string>

namespace tollvane::test {

/// A single-line edit control: text, caret and selection, the way the system's behaves.
class MemoryTextBox : public MemoryControl<TextBox> {
public:
    MemoryTextBox(MemoryForm& form, const ControlDescription& description)
        : MemoryControl(form, description), text_(description.caption) {}
    ~MemoryTextBox() override { wipe(text_); }

    std::string text() const override { return text_; }
    void setText(std::string_view text) override;
    SecretText secretText() const override { return SecretText(text_); }
    void wipeText() override;
    int maxLength() const override { return maxLength_; }
    void setMaxLength(int length) override;
    int selStart() const override { return std::min(anchor_, caret_); }
    int selLength() const override { return std::max(anchor_, caret_) - selStart(); }
    void select(int start, int length) override;
    std::uint32_t windowStyle() const override { return style_; }
    std::uint32_t setWindowStyle(std::uint32_t style) override;

    void clicked() override { place(size(), false); }
    void character(int ascii) override;
    void command(int keyCode, int shift) override;
    void pasted(const std::string& text) override;

private:
    int size() const { return static_cast<int>(text_.size()); }
    /// Moves the caret; with `extend` the selection grows from where it started.
    void place(int caret, bool extend);
    void type(int ascii);
    void erase(bool forward);
    /// Replaces the selection, cutting the new text to what fits, and raises change when the whole
    /// text differs.
    void replaceSelection(const std::string& with);
    void change(std::string text, int caret);

    std::string text_;
    int anchor_ = 0;
    int caret_ = 0;
    int maxLength_ = 32'767;
    std::uint32_t style_ = 0x5001'0080; // child, visible, tab stop, scrolls sideways
};

} // namespace tollvane::test
