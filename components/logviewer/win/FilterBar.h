// The row of boxes above the list.
#pragma once

#include "components/logviewer/core/LogFilter.h"

#include <windows.h>

#include <string>
#include <vector>

namespace tollvane::logviewer {

class FilterBar {
public:
    // The controls become children of the window, in tab order. Ids from firstId on.
    void create(HWND parent);
    void setFont(HFONT font, UINT dpi);
    // Within the width, from the top; answers the height that is needed.
    int layOut(int left, int top, UINT dpi);
    // The width below which the boxes do not fit.
    [[nodiscard]] static int leastWidth(UINT dpi) noexcept;

    // Keeps who is chosen while operators are only added; answers false when the choice is gone.
    bool setOperators(const std::vector<std::string>& names);
    // A day that cannot be read does not matter to the filter.
    [[nodiscard]] LogFilter filter() const;
    [[nodiscard]] bool hasBadDay() const;
    void clear();
    // Whether a command or notification of the control means that the filter is another one.
    [[nodiscard]] bool isChange(int id, int notification) const noexcept;
    [[nodiscard]] static bool isClear(int id, int notification) noexcept;

private:
    enum { labels = 6, boxes = 7 };

    HWND addBox(int place, const wchar_t* windowClass, const wchar_t* caption, DWORD style);
    void addChoices();

    HWND parent_ = nullptr;
    HWND label_[labels] = {};
    HWND box_[boxes] = {};
    std::size_t operatorCount_ = 0;
};

} // namespace tollvane::logviewer
