#pragma once

#include "controls/DecimalNumber.h"
#include "controls/FormatType.h"
#include "controls/ProperCase.h"
#include "platform/Controls.h"
#include "platform/Surroundings.h"

#include <functional>

namespace tollvane {

/// Attaches to a text box and shapes what is typed into it by a format type. One object serves one
/// box at a time and outlives the box's events.
class AutoFormatTextbox {
public:
    /// `locale` outlives the object.
    explicit AutoFormatTextbox(Locale& locale) : locale_(locale) {}
    AutoFormatTextbox(const AutoFormatTextbox&) = delete;
    AutoFormatTextbox& operator=(const AutoFormatTextbox&) = delete;

    tollvane::TextBox* TextBox() const { return box_; }
    /// Takes over the box's got-focus, key-down, key-press and paste events, while the form is
    /// being built. Handlers that the box already has run first.
    void SetTextBox(tollvane::TextBox& box);

    std::int32_t FormatType() const { return formatType_; }
    /// To be set after the text box. Lower case, upper case and digits only add a bit to the edit
    /// style, and nothing ever removes it again.
    void SetFormatType(std::int32_t formatType);

private:
    void gotFocus();
    void keyDown(int keyCode);
    void keyPress(int& keyAscii);
    void paste(std::string& text) const;
    DecimalStyle decimalStyle() const;

    Locale& locale_;
    tollvane::TextBox* box_ = nullptr;
    std::int32_t formatType_ = formattype::none;
    ProperCase properCase_;
};

} // namespace tollvane
