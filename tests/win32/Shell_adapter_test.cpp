// Documents, programs, help files and paths, on the system's shell; the Help button of a box.

#include "platform/win32/Win32Form.h"
#include "platform/win32/Win32MessageBoxes.h"
#include "platform/win32/Win32ProgramFacts.h"
#include "platform/win32/Win32Shell.h"
#include "tests/scenarios/ScenarioTest.h"
#include "tests/scenarios/TracedForm.h"
#include "tests/win32/Until.h"
#include "tests/win32/WindowForms.h"

#include <windows.h>

#include <array>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace tollvane::test {
namespace {

constexpr WindowNumber kNoOwner = 0;
constexpr std::int32_t kFileNotFound = 2;
constexpr std::int32_t kNoAssociation = 31;

/// A folder in the temporary folder, gone afterwards with its files.
class ScratchFolder {
public:
    ScratchFolder() {
        std::array<char, MAX_PATH> temporary{};
        GetTempPathA(MAX_PATH, temporary.data());
        path = temporary.data() + ("tlv shell " + std::to_string(GetCurrentProcessId())) + "\\";
        CreateDirectoryA(path.c_str(), nullptr);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        for (const char* name : {"page.tlvnone", "page.tlvknown", "written"}) {
            DeleteFileA((path + name).c_str());
        }
        RemoveDirectoryA(path.c_str());
    }
    std::string add(const char* name) const {
        std::ofstream(path + name) << "x";
        return path + name;
    }
    bool comesToHold(const char* name) const {
        return until(
            [&] { return GetFileAttributesA((path + name).c_str()) != INVALID_FILE_ATTRIBUTES; });
    }

    std::string path;
};

class ShellAdapter : public testing::Test {
protected:
    std::int32_t execute(const char* verb, const std::string& file) {
        return shell.execute(kNoOwner, verb, file, {}, folder.path, kShowNormal);
    }

    ScratchFolder folder;
    win32::Win32Shell shell;
};

TEST_F(ShellAdapter, RunsAProgramWithItsParametersInItsFolder) {
    EXPECT_GT(
        shell.execute(kNoOwner, "Open", "cmd.exe", "/c echo x>written", folder.path, kShowNormal),
        kLargestLaunchError);
    EXPECT_TRUE(folder.comesToHold("written"));
}

TEST_F(ShellAdapter, AMissingFileGivesTwo) {
    EXPECT_EQ(execute("Open", folder.path + "missing.txt"), kFileNotFound);
}

TEST_F(ShellAdapter, AFileWithoutAnAssociationGives31ForEitherVerb) {
    const std::string file = folder.add("page.tlvnone");
    EXPECT_EQ(execute("Open", file), kNoAssociation);
    EXPECT_EQ(execute("print", file), kNoAssociation);
}

/// Files of the extension ".tlvknown" are opened by the system's editor while this lives.
class KnownExtension {
public:
    KnownExtension() {
        set("Software\\Classes\\.tlvknown", "tlvknownfile");
        set("Software\\Classes\\tlvknownfile\\shell\\open\\command",
            "\"C:\\windows\\system32\\notepad.exe\" \"%1\"");
    }
    KnownExtension(const KnownExtension&) = delete;
    KnownExtension& operator=(const KnownExtension&) = delete;
    ~KnownExtension() {
        for (const char* key :
             {"Software\\Classes\\.tlvknown", "Software\\Classes\\tlvknownfile"}) {
            RegDeleteTreeA(HKEY_LOCAL_MACHINE, key);
        }
    }

private:
    static void set(const char* key, const std::string& value) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, nullptr, REG_SZ, value.c_str(),
                        static_cast<DWORD>(value.size() + 1));
    }
};

TEST_F(ShellAdapter, FindsTheProgramOfAFile) {
    const KnownExtension known;
    std::string program;
    EXPECT_GT(shell.findProgram(folder.add("page.tlvknown"), folder.path, program),
              kLargestLaunchError);
    EXPECT_EQ(_stricmp(program.c_str(), "C:\\windows\\system32\\notepad.exe"), 0) << program;
}

TEST_F(ShellAdapter, FindsNoProgramForAFileWithoutAnAssociation) {
    std::string program = "before";
    EXPECT_EQ(shell.findProgram(folder.add("page.tlvnone"), folder.path, program), kNoAssociation);
    EXPECT_EQ(program, "");
}

TEST_F(ShellAdapter, FindsNoProgramForAMissingFile) {
    std::string program = "before";
    EXPECT_EQ(shell.findProgram(folder.path + "missing.txt", folder.path, program), kFileNotFound);
    EXPECT_EQ(program, "");
}

TEST_F(ShellAdapter, AMissingHelpFileIsNotShown) {
    EXPECT_FALSE(shell.helpContents(kNoOwner, folder.path + "missing.hlp"));
    EXPECT_FALSE(shell.helpTopic(kNoOwner, folder.path + "missing.hlp", 227));
}

TEST_F(ShellAdapter, AFolderIsNoHelpFile) {
    EXPECT_FALSE(shell.helpContents(kNoOwner, folder.path));
}

TEST_F(ShellAdapter, APathThatFitsStaysAsItIs) {
    EXPECT_EQ(shell.compactPath("C:\\zenda\\data", 13), "C:\\zenda\\data");
    EXPECT_EQ(shell.compactPath("", 50), "");
}

TEST_F(ShellAdapter, ALongPathKeepsItsEndAndHasNoMoreCharactersThanAsked) {
    const std::string path = "C:\\Users\\Public\\Documents\\Shops\\Zenda\\data";
    for (const int longest : {20, 30, 41}) {
        const std::string compacted = shell.compactPath(path, longest);
        EXPECT_LE(compacted.size(), static_cast<std::size_t>(longest)) << compacted;
        EXPECT_NE(compacted.find("..."), std::string::npos) << compacted;
        EXPECT_TRUE(compacted.ends_with("\\data")) << compacted;
    }
}

TEST_F(ShellAdapter, APathBeyondTheSystemsLimitIsCutToItsEnd) {
    std::string path = "C:\\";
    while (path.size() < 2 * MAX_PATH) {
        path += "folder\\";
    }
    const std::string compacted = shell.compactPath(path + "data", 30);
    EXPECT_EQ(compacted.size(), 30U) << compacted;
    EXPECT_TRUE(compacted.starts_with("...")) << compacted;
    EXPECT_TRUE(compacted.ends_with("\\data")) << compacted;
}

TEST_F(ShellAdapter, NoRoomLeavesNoPath) {
    EXPECT_EQ(shell.compactPath("C:\\zenda", 0), "");
}

/// Presses the Help button of the message box that is open, and then its OK.
class HelpSeeker {
public:
    HelpSeeker() {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, 20, &rang);
    }
    HelpSeeker(const HelpSeeker&) = delete;
    HelpSeeker& operator=(const HelpSeeker&) = delete;
    ~HelpSeeker() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }

    /// The boxes that buttons were pressed in, each with its owner.
    std::vector<std::pair<HWND, HWND>> seen;

private:
    static void CALLBACK rang(HWND, UINT, UINT_PTR, DWORD) {
        EnumThreadWindows(GetCurrentThreadId(), &look, 0);
    }
    /// Of several boxes only the one in front is enabled.
    static BOOL CALLBACK look(HWND window, LPARAM) {
        std::array<char, 16> name{};
        GetClassNameA(window, name.data(), static_cast<int>(name.size()));
        if (!current_ || std::strcmp(name.data(), "#32770") != 0 || !IsWindowVisible(window) ||
            !IsWindowEnabled(window)) {
            return TRUE;
        }
        const WORD button = std::exchange(current_->pressed_, true) ? IDOK : IDHELP;
        current_->seen.emplace_back(window, GetWindow(window, GW_OWNER));
        PostMessageA(window, WM_COMMAND, button, 0);
        return FALSE;
    }

    static inline HelpSeeker* current_ = nullptr; // a timer without a window carries no data
    bool pressed_ = false;
    UINT_PTR timer_ = 0;
};

class HelpOfABox : public ScenarioTest {
protected:
    void SetUp() override { traced.show(); }

    win32::Ui& ui() { return dynamic_cast<WindowForms&>(*desk.forms).ui(); }

    HWND windowOfForm() { return dynamic_cast<win32::Win32Form&>(traced.form()).window(); }

    TracedForm traced{*desk.forms};
    win32::Win32ProgramFacts facts{GetModuleHandleA(nullptr)};
    win32::Win32MessageBoxes boxes{ui(), facts};
};

TEST_F(HelpOfABox, RunsWhileTheBoxIsOpen) {
    const HelpSeeker seeker;
    std::vector<long> topics;
    bool boxIsOpen = false;
    boxes.show({.text = "Refused",
                .helpFile = "some.hlp",
                .helpTopic = 227,
                .help = [&](const Message& box) {
                    topics.push_back(box.helpTopic);
                    boxIsOpen = ui().openBox() == &box;
                }});
    EXPECT_EQ(topics, std::vector<long>{227});
    EXPECT_TRUE(boxIsOpen);
}

TEST_F(HelpOfABox, ThatShowsABoxItselfPutsItOnTheFirstOne) {
    const HelpSeeker seeker;
    boxes.show({.text = "Refused", .helpFile = "some.hlp", .help = [&](const Message& /*box*/) {
                    boxes.show({.text = "No such page"});
                }});
    ASSERT_EQ(seeker.seen.size(), 3U);
    EXPECT_EQ(seeker.seen[0].second, windowOfForm());
    EXPECT_EQ(seeker.seen[1].second, seeker.seen[0].first);
    EXPECT_EQ(seeker.seen[2].first, seeker.seen[0].first) << "the first box is in front again";
    EXPECT_TRUE(IsWindowEnabled(windowOfForm()));
}

TEST_F(HelpOfABox, WithoutAnythingToOpenDoesNothing) {
    const HelpSeeker seeker;
    EXPECT_EQ(boxes.show({.text = "Refused", .helpFile = "some.hlp"}), MessageAnswer::ok);
}

TEST_F(HelpOfABox, ThatRaisesIsReportedAndTheBoxStaysOpen) {
    const HelpSeeker seeker;
    const MessageAnswer answer =
        boxes.show({.text = "Refused", .helpFile = "some.hlp", .help = [](const Message& /*box*/) {
                        throw Error(70, "help", "Permission denied");
                    }});
    EXPECT_EQ(answer, MessageAnswer::ok);
    EXPECT_EQ(desk.escaped.noted().size(), 1U);
    desk.escaped.forget();
}

} // namespace
} // namespace tollvane::test
