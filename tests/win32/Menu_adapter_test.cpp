// Where menus open, and what a status bar shows at once.

#include "platform/win32/NativeControl.h"
#include "platform/win32/Win32Form.h"
#include "tests/scenarios/ScenarioTest.h"
#include "tests/scenarios/Till.h"
#include "tests/scenarios/TracedForm.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

HWND windowOf(Form& form) {
    return dynamic_cast<win32::Win32Form&>(form).window();
}

HWND windowOf(Form& form, std::string_view control) {
    return dynamic_cast<win32::NativeControl&>(form.find(control)).window();
}

/// Remembers where the form's menu stood when an item of it was selected.
class MenuWatch {
public:
    explicit MenuWatch(HWND form) : form_(form) {
        SetWindowSubclass(form_, &received, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    MenuWatch(const MenuWatch&) = delete;
    MenuWatch& operator=(const MenuWatch&) = delete;
    ~MenuWatch() { RemoveWindowSubclass(form_, &received, 1); }

    RECT place{};

private:
    static LRESULT CALLBACK received(HWND window, UINT message, WPARAM first, LPARAM second,
                                     UINT_PTR /*id*/, DWORD_PTR self) {
        if (message == WM_MENUSELECT && second) {
            GetWindowRect(FindWindowA("#32768", nullptr),
                          &reinterpret_cast<MenuWatch*>(self)->place);
        }
        return DefSubclassProc(window, message, first, second);
    }

    HWND form_;
};

class MenuAdapter : public ScenarioTest {
protected:
    void SetUp() override { traced.show(); }

    TracedForm traced{*desk.forms};
};

TEST_F(MenuAdapter, APopUpOpensAtTheMouse) {
    const MenuWatch watch(windowOf(traced.form()));
    constexpr POINT kMouse{333, 222};
    traced.during["cmdPress_Click"] = [&] {
        SetCursorPos(kMouse.x, kMouse.y);
        traced.form().popUpMenu("mnuPopup");
    };
    robot.planPopUp("mnuPick");

    robot.click(traced.form(), "cmdPress");

    EXPECT_EQ(watch.place.left, kMouse.x);
    EXPECT_EQ(watch.place.top, kMouse.y);
    EXPECT_GT(watch.place.right, watch.place.left);
}

TEST_F(MenuAdapter, AFormTellsItsWindowUntilItIsClosed) {
    EXPECT_EQ(LongToHandle(traced.form().handle()), windowOf(traced.form()));
    traced.form().close();
    EXPECT_EQ(traced.form().handle(), 0);
}

/// The system has something to paint in the window.
bool hasToPaint(HWND window) {
    return GetUpdateRect(window, nullptr, FALSE) != FALSE;
}

TEST_F(MenuAdapter, ARefreshedStatusBarIsPaintedWithoutWaitingForItsTurn) {
    const HWND window = windowOf(traced.form(), "sbrStatus");
    InvalidateRect(window, nullptr, TRUE);
    ASSERT_TRUE(hasToPaint(window)) << "the test is blind";

    traced.get<StatusBar>("sbrStatus").refresh();

    EXPECT_FALSE(hasToPaint(window));
}

class StatusAdapter : public OpenTillTest {};

TEST_F(StatusAdapter, AStatusOfTheProgramIsOnTheScreenAtOnce) {
    const HWND window = windowOf(till.form(), "sbrStatus");
    InvalidateRect(window, nullptr, TRUE);
    ASSERT_TRUE(hasToPaint(window)) << "the test is blind";

    till.program().ShowStatus("Authorizing");

    EXPECT_EQ(till.status(), "Authorizing");
    EXPECT_FALSE(hasToPaint(window));
}

} // namespace
} // namespace tollvane::test
