#pragma once

#include "platform/MessageBox.h"
#include "platform/ProgramFacts.h"

namespace tollvane::win32 {

class Ui;

/// Message boxes in front of the form that is active. Never throws: these are the last resort.
class Win32MessageBoxes final : public MessageBoxes {
public:
    Win32MessageBoxes(Ui& ui, ProgramFacts& program) : ui_(ui), program_(program) {}

    MessageAnswer show(const Message& message) override;

private:
    Ui& ui_;
    ProgramFacts& program_;
};

} // namespace tollvane::win32
