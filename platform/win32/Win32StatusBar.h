#pragma once

#include "platform/win32/ControlOf.h"

namespace tollvane::win32 {

/// The status bar at the lower edge of the form, whatever its bounds say.
class Win32StatusBar final : public ControlOf<StatusBar> {
public:
    Win32StatusBar(FormCore& form, const ControlDescription& description,
                   std::span<const PanelDescription> panels);

    std::string panelText(std::string_view key) const override;
    void setPanelText(std::string_view key, const std::string& text) override;
    void refresh() override;
    void place() override;

private:
    struct Panel {
        std::string key;
        int width;
        std::string text;
    };

    std::size_t placeOf(std::string_view key) const;

    std::vector<Panel> panels_;
};

} // namespace tollvane::win32
