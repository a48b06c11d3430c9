#pragma once

#include "platform/Form.h"

namespace tollvane::win32 {

class Ui;

class Win32Forms final : public Forms {
public:
    explicit Win32Forms(Ui& ui);

    std::unique_ptr<Form> create(const FormDescription& description) override;

private:
    Ui& ui_;
};

} // namespace tollvane::win32
