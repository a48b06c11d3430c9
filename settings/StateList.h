#pragma once

#include "platform/Controls.h"
#include "platform/ProgramFacts.h"

#include <string>

namespace tollvane {

/// Fills a box with the two-letter codes of the states and territories; an entry's number is its
/// code's place in the string table.
void fillStateList(ProgramFacts& program, ComboBox& box);

/// Full name of the selected entry. Raises 381 when none is selected.
std::string selectedStateName(ProgramFacts& program, const ComboBox& box);

/// Selects the entry whose text equals `code`. Raises 380 when there is none; the first entry is
/// selected then.
void selectState(ComboBox& box, const std::string& code);

} // namespace tollvane
