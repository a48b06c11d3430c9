// What only real windows show: names for automation tools, sizes at a DPI, what an edit control
// remembers, message boxes.

#include "platform/win32/MessagePump.h"
#include "platform/win32/Win32Form.h"
#include "platform/win32/Win32MessageBoxes.h"
#include "platform/win32/Win32ProgramFacts.h"
#include "tests/scenarios/ScenarioTest.h"
#include "tests/scenarios/TracedForm.h"
#include "tests/win32/MemorySearch.h"
#include "tests/win32/WindowForms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace tollvane::test {
namespace {

class WindowAdapter : public ScenarioTest {
protected:
    WindowForms& forms() { return dynamic_cast<WindowForms&>(*desk.forms); }
    win32::Win32Form& window() { return dynamic_cast<win32::Win32Form&>(traced.form()); }
    HWND windowOf(std::string_view name, int index = -1) {
        return dynamic_cast<win32::NativeControl&>(traced.form().find(name, index)).window();
    }
    static LRESULT askName(HWND window, std::wstring& name, WPARAM size) {
        name.assign(64, L'#');
        const LRESULT answer = SendMessageA(window, RegisterWindowMessageA("WM_GETCONTROLNAME"),
                                            size, reinterpret_cast<LPARAM>(name.data()));
        name.resize(std::min(name.find(L'\0'), name.size()));
        return answer;
    }

    TracedForm traced{*desk.forms};
};

TEST_F(WindowAdapter, EveryWindowTellsItsName) {
    std::wstring name;
    EXPECT_EQ(askName(windowOf("txtFirst"), name, 64), 9);
    EXPECT_EQ(name, L"txtFirst");
    EXPECT_EQ(askName(windowOf("optKind", 2), name, 64), 11);
    EXPECT_EQ(name, L"optKind(2)");
    EXPECT_EQ(askName(window().window(), name, 64), 10);
    EXPECT_EQ(name, L"frmTraced");
    for (const auto* control : {"cboList", "chkBox", "fraBox", "cmdPress", "sbrStatus"}) {
        EXPECT_GT(askName(windowOf(control), name, 64), 0) << control;
    }
}

TEST_F(WindowAdapter, ANameThatDoesNotFitIsNotWritten) {
    std::wstring name;
    EXPECT_EQ(askName(windowOf("txtFirst"), name, 8), -1);
    EXPECT_EQ(SendMessageA(windowOf("txtFirst"), RegisterWindowMessageA("WM_GETCONTROLNAME"), 0, 0),
              static_cast<LRESULT>(9 * sizeof(wchar_t)));
}

TEST_F(WindowAdapter, TheLabelStandsRightBeforeTheBoxThatItNames) {
    EXPECT_EQ(GetWindow(windowOf("txtFirst"), GW_HWNDPREV), windowOf("lblFirst"));
    EXPECT_EQ(GetWindow(windowOf("txtSecond"), GW_HWNDPREV), windowOf("lblSecond"));
}

TEST_F(WindowAdapter, FramesLieBelowWhatTheyEnclose) {
    EXPECT_EQ(GetWindow(windowOf("fraBox"), GW_HWNDNEXT), nullptr);
}

TEST_F(WindowAdapter, EverythingGrowsWithTheDpi) {
    traced.show();
    RECT frame{};
    GetWindowRect(window().window(), &frame);
    SendMessageA(window().window(), WM_DPICHANGED, MAKEWPARAM(192, 192),
                 reinterpret_cast<LPARAM>(&frame));
    for (const auto* name : {"txtFirst", "cboList", "cmdPress"}) {
        RECT place{};
        GetWindowRect(windowOf(name), &place);
        MapWindowPoints(nullptr, window().window(), reinterpret_cast<POINT*>(&place), 2);
        const Bounds bounds = traced.form().find(name).bounds();
        EXPECT_EQ(place.left, bounds.left * 2) << name;
        EXPECT_EQ(place.top, bounds.top * 2) << name;
        EXPECT_EQ(place.right - place.left, bounds.width * 2) << name;
        EXPECT_EQ(place.bottom - place.top, bounds.height * 2) << name;
    }
}

TEST_F(WindowAdapter, AClosedListIsAsHighAsItsBounds) {
    RECT place{};
    GetWindowRect(windowOf("cboList"), &place);
    EXPECT_EQ(place.bottom - place.top, win32::scaled(22, win32::windowDpi(window().window())));
}

/// A form whose default and cancel buttons Enter and Escape press.
class OpenListAdapter : public ScenarioTest {
protected:
    HWND openList() {
        traced.show();
        traced.form().find("cboList").setFocus();
        const HWND list =
            dynamic_cast<win32::NativeControl&>(traced.form().find("cboList")).window();
        SendMessageA(list, CB_SHOWDROPDOWN, TRUE, 0);
        traced.watch(watchValues);
        return list;
    }

    TracedForm traced{*desk.forms, {.defaultButton = "cmdPress", .cancelButton = "cmdFree"}};
};

TEST_F(OpenListAdapter, EnterAndEscapeCloseTheListAndPressNothing) {
    for (const char* key : {"\r", "\x1b"}) {
        const HWND list = openList();

        robot.typeText(key);
        EXPECT_EQ(SendMessageA(list, CB_GETDROPPEDSTATE, 0, 0), FALSE);
        EXPECT_EQ(traced.take(), "");

        robot.typeText(key);
        EXPECT_EQ(traced.take(), key[0] == '\r' ? "cmdPress_Click" : "cmdFree_Click");
    }
}

TEST_F(WindowAdapter, ABurstOfAReaderArrivesWholeAndInOrder) {
    traced.show();
    const std::string track = "%B4111111111111111^SMITH/JOHN^2712101000000?";
    const HWND box = windowOf("txtFirst");
    for (const char character : track) {
        PostMessageA(box, WM_CHAR, static_cast<WPARAM>(character), 1);
    }
    win32::pumpWaiting(forms().ui());
    EXPECT_EQ(traced.box("txtFirst").text(), track);
}

TEST_F(WindowAdapter, AHeldSpacePressesAButtonOnce) {
    traced.show();
    traced.form().find("cmdPress").setFocus();
    traced.watch(watchValues);
    constexpr LPARAM again = 1L << 30 | 1;
    PostMessageA(windowOf("cmdPress"), WM_CHAR, ' ', 1);
    PostMessageA(windowOf("cmdPress"), WM_CHAR, ' ', again);
    PostMessageA(windowOf("cmdPress"), WM_CHAR, ' ', again);
    win32::pumpWaiting(forms().ui());
    EXPECT_EQ(traced.take(), "cmdPress_Click");
}

TEST_F(WindowAdapter, AWipedTextIsGoneFromTheWholeProcess) {
    const MemorySearch search("4012", "8888");
    traced.show();
    traced.watch(0);
    for (const char* half : {"40128888", "88881881"}) {
        for (const char* digit = half; *digit; ++digit) {
            SendMessageA(windowOf("txtFirst"), WM_CHAR, static_cast<WPARAM>(*digit), 1);
        }
    }
    ASSERT_EQ(traced.box("txtFirst").secretText().size(), 16U);
    ASSERT_GT(search.count(), 0);
    traced.box("txtFirst").wipeText();
    EXPECT_EQ(search.count(), 0);
    SendMessageA(windowOf("txtFirst"), EM_UNDO, 0, 0);
    EXPECT_EQ(traced.box("txtFirst").text(), "");
}

TEST_F(WindowAdapter, AnEmptyBoxIsWipedOfWhatWasDeletedByHand) {
    const MemorySearch search("4929", "1357");
    traced.show();
    traced.watch(0);
    const HWND box = windowOf("txtFirst");
    for (const char* half : {"4929", "1357"}) {
        for (const char* digit = half; *digit; ++digit) {
            SendMessageA(box, WM_CHAR, static_cast<WPARAM>(*digit), 1);
        }
    }
    SendMessageA(box, EM_SETSEL, 0, -1);
    SendMessageA(box, WM_CLEAR, 0, 0);
    ASSERT_EQ(traced.box("txtFirst").secretText().size(), 0U);
    ASSERT_GT(search.count(), 0) << "it could be brought back";
    traced.take();

    traced.box("txtFirst").wipeText();

    EXPECT_EQ(search.count(), 0);
    EXPECT_EQ(traced.take(), "") << "nothing has changed that shows";
}

/// Small blocks of the process's heap, filled by nobody: they hold what lay there before.
class UnfilledBlocks {
public:
    UnfilledBlocks() = default;
    UnfilledBlocks(const UnfilledBlocks&) = delete;
    UnfilledBlocks& operator=(const UnfilledBlocks&) = delete;
    ~UnfilledBlocks() {
        for (void* const block : blocks_) {
            HeapFree(GetProcessHeap(), 0, block);
        }
    }

    void take() {
        for (std::size_t size = 16; size <= 256; size += 16) {
            blocks_.push_back(HeapAlloc(GetProcessHeap(), 0, size));
        }
    }

private:
    std::vector<void*> blocks_;
};

TEST_F(WindowAdapter, WhatIsAllocatedWhileANumberIsKeyedTakesUpNothingOfIt) {
    // Behind what a freed block's links overwrite; no other test types these digits.
    const MemorySearch search("2086", "4937");
    traced.show();
    traced.watch(0);
    UnfilledBlocks others;
    for (const char* half : {"46039157", "20864937"}) {
        for (const char* digit = half; *digit; ++digit) {
            SendMessageA(windowOf("txtFirst"), WM_CHAR, static_cast<WPARAM>(*digit), 1);
        }
    }
    SendMessageA(windowOf("txtFirst"), WM_CHAR, '8', 1);
    others.take();
    ASSERT_GT(search.count(), 0);
    traced.box("txtFirst").wipeText();
    EXPECT_EQ(search.count(), 0);
}

/// Looks at the message box that is open and answers it with a key, from inside its own loop.
class BoxUser {
public:
    explicit BoxUser(WPARAM key) : key_(key) {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, 20, &rang);
    }
    BoxUser(const BoxUser&) = delete;
    BoxUser& operator=(const BoxUser&) = delete;
    ~BoxUser() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }

    std::string title;
    std::string text;
    std::string focused; ///< caption of the button that has the focus
    HWND owner = nullptr;
    bool helpButton = false;

private:
    static std::string textOf(HWND window) {
        std::array<char, 256> buffer{};
        GetWindowTextA(window, buffer.data(), static_cast<int>(buffer.size()));
        return buffer.data();
    }
    static void CALLBACK rang(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = GetActiveWindow();
        std::array<char, 16> name{};
        GetClassNameA(box, name.data(), static_cast<int>(name.size()));
        if (current_ && std::strcmp(name.data(), "#32770") == 0) {
            current_->look(box);
        }
    }
    void look(HWND box) {
        title = textOf(box);
        text = textOf(GetDlgItem(box, 0xFFFF));
        focused = textOf(GetFocus());
        owner = GetWindow(box, GW_OWNER);
        helpButton = GetDlgItem(box, IDHELP) != nullptr && IsWindowVisible(GetDlgItem(box, IDHELP));
        PostMessageA(GetFocus(), WM_KEYDOWN, key_, 1);
        PostMessageA(GetFocus(), WM_KEYUP, key_, 1);
    }

    static inline BoxUser* current_ = nullptr; // a timer without a window carries no data
    WPARAM key_;
    UINT_PTR timer_;
};

class MessageBoxAdapter : public WindowAdapter {
protected:
    void SetUp() override { traced.show(); }

    win32::Win32ProgramFacts facts{GetModuleHandleA(nullptr)};
    win32::Win32MessageBoxes boxes{forms().ui(), facts};
};

TEST_F(MessageBoxAdapter, ShowsTextAndTitleInFrontOfTheActiveForm) {
    BoxUser user(VK_RETURN);
    EXPECT_EQ(boxes.show({.text = "Read this", .title = "Look"}), MessageAnswer::ok);
    EXPECT_EQ(user.title, "Look");
    EXPECT_EQ(user.text, "Read this");
    EXPECT_EQ(user.owner, window().window());
    EXPECT_FALSE(user.helpButton);
}

TEST_F(MessageBoxAdapter, WithoutATitleShowsTheProductName) {
    BoxUser user(VK_RETURN);
    boxes.show({.text = "Read this"});
    EXPECT_EQ(user.title, "Tollvane");
}

TEST_F(MessageBoxAdapter, AQuestionIsAnsweredYesByItsFirstButton) {
    BoxUser user(VK_RETURN);
    EXPECT_EQ(
        boxes.show(
            {.text = "Well?", .icon = MessageIcon::question, .buttons = MessageButtons::yesNo}),
        MessageAnswer::yes);
    EXPECT_EQ(user.focused, "&Yes");
}

TEST_F(MessageBoxAdapter, TheSecondButtonCanBeTheDefault) {
    BoxUser user(VK_RETURN);
    EXPECT_EQ(boxes.show({.text = "Well?",
                          .icon = MessageIcon::question,
                          .buttons = MessageButtons::yesNo,
                          .defaultButton = 2}),
              MessageAnswer::no);
    EXPECT_EQ(user.focused, "&No");
}

TEST_F(MessageBoxAdapter, AHelpFileBringsAHelpButton) {
    BoxUser user(VK_RETURN);
    boxes.show({.text = "Failed", .helpFile = "zendacard.hlp", .helpTopic = 227});
    EXPECT_TRUE(user.helpButton);
}

TEST_F(MessageBoxAdapter, TheFormHearsNoActivationFromItsOwnBox) {
    traced.watch(watchForm | watchFocus);
    BoxUser user(VK_RETURN);
    boxes.show({.text = "Read this"});
    win32::pumpWaiting(forms().ui());
    EXPECT_EQ(traced.take(), "");
    EXPECT_EQ(traced.active(), "txtFirst");
    EXPECT_EQ(GetFocus(), windowOf("txtFirst"));
}

TEST_F(MessageBoxAdapter, TheHourglassIsStillSetWhenTheBoxHasGone) {
    traced.form().setMousePointer(MousePointer::hourglass);
    const HCURSOR hourglass = GetCursor();
    BoxUser user(VK_RETURN);
    boxes.show({.text = "Read this"});
    EXPECT_EQ(GetCursor(), hourglass);
    EXPECT_EQ(traced.form().mousePointer(), MousePointer::hourglass);
}

} // namespace
} // namespace tollvane::test
