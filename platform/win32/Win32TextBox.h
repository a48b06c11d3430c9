#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

/// A single-line edit control. What may be typed into it is judged here, before the system's
/// control sees it, so that both desktops judge alike.
class Win32TextBox final : public ControlOf<TextBox> {
public:
    Win32TextBox(FormCore& form, const ControlDescription& description);

    std::string text() const override;
    void setText(std::string_view text) override;
    SecretText secretText() const override;
    void wipeText() override;
    int maxLength() const override { return maxLength_; }
    void setMaxLength(int length) override { maxLength_ = length; }
    int selStart() const override;
    int selLength() const override;
    void select(int start, int length) override;
    std::uint32_t windowStyle() const override;
    std::uint32_t setWindowStyle(std::uint32_t style) override;

    void typed(int character, LPARAM info) override;

protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override;
    void lockedChanged() override;
    void colourChanged() override;

private:
    static constexpr int kDefaultMaxLength = 32'767;

    LRESULT keyDown(UINT message, WPARAM key, LPARAM info);
    /// Lets the system's control act and raises change when the text came out different.
    LRESULT edited(UINT message, WPARAM first, LPARAM second);
    void insertTyped(int character, LPARAM info);
    void insertPasted();
    /// Bytes that may still be typed.
    int room() const;
    /// The system's control counts characters, the program counts bytes.
    int bytesBefore(DWORD position) const;
    int positionOf(int bytes) const;
    /// Makes the system's buffer large before there is a text: one that grows later leaves its old
    /// bytes in freed memory.
    void growBuffer();
    /// Sets the text of a masked box. The system copies a text that it is given as a whole, and
    /// frees the copy as it is; so it is given short pieces, and only those that are new.
    void setInPieces(std::string_view text);
    /// Empties the box and covers what its buffers held.
    void overwriteText();

    int maxLength_ = kDefaultMaxLength;
    bool isMasked_;
};

} // namespace tollvane::win32
