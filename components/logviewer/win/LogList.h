// The list of lines. It holds no row itself: it asks for those that are on the screen.
#pragma once

#include "components/logviewer/win/LogView.h"

#include <windows.h>

#include <commctrl.h>

namespace tollvane::logviewer {

class LogList {
public:
    void create(HWND parent, int id);
    void setFont(HFONT font, UINT dpi);
    // `hasOnlyGrown`: what is painted stays as it is. A long log grows many times while it is read.
    void setCount(std::size_t count, bool hasOnlyGrown);
    // After a change of the filter: nothing is selected and the last line shows.
    void goToEnd();
    void selectAll();
    // The selected rows to the clipboard, one a line, columns separated by tabs. Answers how many;
    // never more than mostCopied, the first ones.
    std::size_t copy(LogView& view) const;
    [[nodiscard]] std::size_t selectedCount() const;
    [[nodiscard]] HWND window() const noexcept { return window_; }

    // The list's questions and offers (WM_NOTIFY).
    LRESULT answer(const NMHDR& question, LogView& view) const;

    static constexpr std::size_t mostCopied = 100'000;

private:
    static void giveText(NMLVDISPINFOW& question, LogView& view);
    static LRESULT colour(NMLVCUSTOMDRAW& drawing, const LogView& view);

    HWND window_ = nullptr;
    UINT dpi_ = 0;
};

} // namespace tollvane::logviewer
