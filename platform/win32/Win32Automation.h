#pragma once

#include "platform/Automation.h"

namespace tollvane::win32 {

/// Creation of COM components on this computer or another one.
class Win32Automation final : public Automation {
public:
    using Automation::create;

    ObjectRef create(const std::string& progId, const std::string& computer) override;
    ObjectRef createClass(const std::string& classId, const std::string& interfaceId) override;
};

} // namespace tollvane::win32
