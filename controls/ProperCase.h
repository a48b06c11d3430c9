#pragma once

#include <string_view>

namespace tollvane {

/// A text box at the moment of a key: its text and what is selected in it.
struct TypedInto {
    std::string_view text;
    int selStart = 0;
    int selLength = 0;

    bool nothingSelected() const { return selLength == 0; }
    bool allSelected() const { return selLength == static_cast<int>(text.size()); }
};

/// Capitals at the start of words, decided key by key. Letters are never made small.
class ProperCase {
public:
    /// The box has received the focus, with its whole text selected.
    void gotFocus() { capitalizeNext_ = true; }
    void keyDown(const TypedInto& box, int keyCode);
    /// Makes the character a capital where a word starts.
    void keyPress(const TypedInto& box, int& keyAscii);

    bool CapitalizeNext() const { return capitalizeNext_; }

private:
    bool capitalizeNext_ = false;
};

} // namespace tollvane
