#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

/// A drop-down list.
class Win32ComboBox final : public ControlOf<ComboBox> {
public:
    Win32ComboBox(FormCore& form, const ControlDescription& description);

    void clear() override;
    void addItem(const std::string& text, std::int32_t itemData) override;
    int count() const override;
    std::string itemText(int index) const override;
    std::int32_t itemData(int index) const override;
    int listIndex() const override;
    void setListIndex(int index) override;
    std::string text() const override;

    void place() override;
    void typed(int character, LPARAM info) override;
    void command(WORD code) override;
    bool keepsEnterAndEscape() const override;

protected:
    LRESULT handle(UINT message, WPARAM first, LPARAM second) override;

private:
    void demandItem(int index) const;

    int lastIndex_ = -1; ///< selection that was last told to the click handler
};

} // namespace tollvane::win32
