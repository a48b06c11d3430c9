#pragma once

#include "platform/Controls.h"
#include "platform/MessageBox.h"

#include <string>
#include <string_view>

namespace tollvane {

inline constexpr std::string_view kInvalidField = "Invalid Field";
inline constexpr std::string_view kRequiredFieldMissing = "Required Field Missing";

/// Tells the operator what is wrong (the two parts of the text stand a blank line apart), moves the
/// focus to the field to correct and answers false.
bool refuse(MessageBoxes& messageBoxes, Control& field, std::string_view title,
            std::string_view problem, std::string_view remedy);

/// Asks Yes or No with the question icon; true on Yes.
bool confirmed(MessageBoxes& messageBoxes, std::string_view title, const std::string& question,
               int defaultButton = 1);

} // namespace tollvane
