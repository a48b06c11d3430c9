#include "components/charge/core/Processor.h"

namespace tollvane::charge {

const char* operationText(Operation operation) noexcept {
    switch (operation) {
    case Operation::Charge: return "CHARGE";
    case Operation::VoiceCapture: return "VOICE";
    case Operation::Refund: return "REFUND";
    case Operation::Void: break;
    }
    return "VOID";
}

std::optional<Operation> operationFromText(const std::string& text) {
    for (Operation each :
         {Operation::Charge, Operation::VoiceCapture, Operation::Refund, Operation::Void}) {
        if (text == operationText(each))
            return each;
    }
    return std::nullopt;
}

} // namespace tollvane::charge
