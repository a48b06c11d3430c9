// The viewer's one window: boxes of the filter, list, totals, status bar.
#pragma once

#include "components/logviewer/win/FilterBar.h"
#include "components/logviewer/win/LogList.h"
#include "components/logviewer/win/LogView.h"
#include "components/logviewer/win/TotalsPanel.h"

#include <windows.h>

#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>

namespace tollvane::logviewer {

class ViewerWindow {
public:
    // Shows the log; the window appears at once, the lines as they are read. Raises ComponentError
    // when there can be no window.
    explicit ViewerWindow(const std::filesystem::path& log);
    ViewerWindow(const ViewerWindow&) = delete;
    ViewerWindow& operator=(const ViewerWindow&) = delete;

    // Runs until the window is closed.
    void run();

private:
    struct DeleteFont {
        void operator()(HFONT font) const noexcept { DeleteObject(font); }
    };
    struct DestroyKeys {
        void operator()(HACCEL keys) const noexcept { DestroyAcceleratorTable(keys); }
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void create();
    void setFont();
    void layOut();
    void limitSize(MINMAXINFO& limits) const;
    void changeResolution(UINT dpi, const RECT& suggested);
    void activate(bool active);
    void moveFocus(WPARAM target, bool isWindow);

    void open(const std::filesystem::path& log);
    void command(int id, int notification);
    void askForLog();
    void copy();
    void applyFilter();
    void refresh();
    void showState();
    [[nodiscard]] std::wstring stateText() const;

    HWND window_ = nullptr;
    HWND status_ = nullptr;
    HWND focused_ = nullptr;
    UINT dpi_ = USER_DEFAULT_SCREEN_DPI;
    std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont> font_;
    std::unique_ptr<std::remove_pointer_t<HACCEL>, DestroyKeys> keys_;
    FilterBar filter_;
    LogList list_;
    TotalsPanel totals_;
    std::unique_ptr<LogView> view_;
    bool wantsEnd_ = true; // go to the last line once everything is read
};

} // namespace tollvane::logviewer
