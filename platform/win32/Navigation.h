#pragma once

#include <vector>

namespace tollvane::win32 {

class FormCore;
class NativeControl;

/// Moving between the controls of a form with keys: Tab, access keys, arrows inside an array of
/// option buttons.
class Navigation {
public:
    explicit Navigation(FormCore& form) : form_(form) {}

    /// The control that Tab would reach first, or null.
    NativeControl* firstStop() const;
    void tab(bool forward) const;
    /// True when some control has that access key; it has been acted upon then.
    bool accessKey(char letter) const;
    /// True when the form has a control with that access key that can be reached now.
    bool hasAccessKey(char letter) const { return ownerOf(letter) != nullptr; }
    /// An arrow key on an option button: selects the neighbour in its array.
    void arrow(const NativeControl& from, bool forward) const;

private:
    bool isStop(const NativeControl& control) const;
    NativeControl* ownerOf(char letter) const;
    NativeControl* nextFocusable(const NativeControl& behind) const;
    std::vector<NativeControl*> arrayOf(const NativeControl& member) const;
    std::size_t placeOf(const NativeControl* control) const;

    FormCore& form_;
};

} // namespace tollvane::win32
