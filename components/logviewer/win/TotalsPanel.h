// What the shown lines come to: a small table of two rows, live and test.
#pragma once

#include "components/logviewer/core/LogTotals.h"

#include <windows.h>

namespace tollvane::logviewer {

class TotalsPanel {
public:
    void create(HWND parent);
    void setFont(HFONT font);
    [[nodiscard]] static int height(UINT dpi) noexcept;
    void layOut(int left, int top, UINT dpi);

    void show(const LogTotals& totals);
    // While the log is still being read there is nothing to tell.
    void showNothing();

private:
    enum { rows = 3, columns = 5 };

    void set(int row, int column, const wchar_t* text);
    void showMode(int row, const ModeTotals& totals);

    HWND cell_[rows][columns] = {};
};

} // namespace tollvane::logviewer
