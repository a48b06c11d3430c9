#include "settings/StateList.h"

namespace tollvane {

namespace {
constexpr unsigned kFirstCodeId = 200;
constexpr unsigned kLastCodeId = 257;
constexpr unsigned kNameOffset = 200; ///< from a code's place to its name's
} // namespace

void fillStateList(ProgramFacts& program, ComboBox& box) {
    box.clear();
    for (unsigned id = kFirstCodeId; id <= kLastCodeId; ++id) {
        box.addItem(program.resourceString(id), static_cast<std::int32_t>(id));
    }
}

std::string selectedStateName(ProgramFacts& program, const ComboBox& box) {
    const auto codeId = static_cast<unsigned>(box.itemData(box.listIndex()));
    return program.resourceString(codeId + kNameOffset);
}

void selectState(ComboBox& box, const std::string& code) {
    int entry = 0;
    while (entry < box.count() && box.itemText(entry) != code) {
        ++entry;
    }
    if (entry == box.count()) {
        box.setListIndex(0);
    }
    box.setListIndex(entry); // one past the end raises: no entry has that code
}

} // namespace tollvane
