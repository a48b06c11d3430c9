// Files, INI values, processes and the program's own facts, on the system's.

#include "platform/Error.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32ProgramFacts.h"
#include "platform/win32/Win32Surroundings.h"

#include <windows.h>

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace tollvane::test {
namespace {

/// A file in the temporary folder, gone afterwards.
class ScratchFile {
public:
    explicit ScratchFile(const std::string& content) {
        char folder[MAX_PATH];
        char name[MAX_PATH];
        GetTempPathA(MAX_PATH, folder);
        GetTempFileNameA(folder, "tlv", 0, name);
        path = name;
        std::ofstream(path, std::ios::binary) << content;
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() { DeleteFileA(path.c_str()); }

    std::string path;
};

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

win32::Win32Files files;

TEST(FilesAdapter, AnExistingFileCanBeReadAndAMissingOneIsNotFound) {
    const ScratchFile file("x");
    EXPECT_EQ(files.probeForReading(file.path), 0U);
    EXPECT_EQ(files.probeForReading(file.path + ".none"), 2U);
    EXPECT_EQ(files.probeForReading("C:\\no\\such\\folder\\file"), 3U);
}

TEST(FilesAdapter, AFileThatIsHeldExclusivelyIsInUse) {
    const ScratchFile file("x");
    const HANDLE held = CreateFileA(file.path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(files.probeForReading(file.path), 32U);
    CloseHandle(held);
}

TEST(FilesAdapter, IniValuesAreReadAndMissingOnesFallBack) {
    const ScratchFile file("[Form]\r\nLeft=120\r\n");
    EXPECT_EQ(files.profileString("Form", "Left", "none", 2555, file.path), "120");
    EXPECT_EQ(files.profileString("Form", "Top", "none", 2555, file.path), "none");
    EXPECT_EQ(files.profileString("Form", "Left", "none", 2555, file.path + ".none"), "none");
    EXPECT_EQ(files.profileString("Form", "Left", "none", 3, file.path), "12");
}

TEST(FilesAdapter, AFileIsFoundByTheNameThatItsFolderHas) {
    const ScratchFile file("x");
    const std::string name = file.path.substr(file.path.find_last_of('\\') + 1);
    EXPECT_EQ(files.findFile(file.path), name);
    EXPECT_EQ(files.setAttributes(file.path, fileattribute::readOnly), 0U);
    EXPECT_EQ(files.findFile(file.path), name);
    EXPECT_EQ(files.setAttributes(file.path, fileattribute::normal), 0U);
    EXPECT_EQ(files.findFile(file.path + ".none"), "");
    EXPECT_EQ(files.findFile("C:\\no\\such\\folder\\file"), "");
}

TEST(FilesAdapter, AttributesOfAMissingFileGiveTheSystemsError) {
    const ScratchFile file("x");
    EXPECT_EQ(files.setAttributes(file.path + ".none", fileattribute::normal), 2U);
}

TEST(FilesAdapter, AppendingCreatesAFileAndLengthensIt) {
    const ScratchFile file("x");
    DeleteFileA(file.path.c_str());
    EXPECT_EQ(files.append(file.path, "one\r\n"), 0U);
    EXPECT_EQ(files.append(file.path, "two\r\n"), 0U);
    EXPECT_EQ(files.append(file.path, ""), 0U);
    EXPECT_EQ(contentOf(file.path), "one\r\ntwo\r\n");
}

TEST(FilesAdapter, TheReadOnlyAttributeIsSetAndCleared) {
    const ScratchFile file("one");
    const auto isReadOnly = [&] {
        return (GetFileAttributesA(file.path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
    };
    EXPECT_EQ(files.setAttributes(file.path, fileattribute::readOnly), 0U);
    EXPECT_TRUE(isReadOnly());
    EXPECT_EQ(files.setAttributes(file.path, fileattribute::normal), 0U);
    EXPECT_FALSE(isReadOnly());
    EXPECT_EQ(files.append(file.path, "two"), 0U);
    EXPECT_EQ(contentOf(file.path), "onetwo");
}

TEST(FilesAdapter, AFileThatIsHeldExclusivelyIsNotAppendedTo) {
    const ScratchFile file("x");
    const HANDLE held = CreateFileA(file.path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(files.append(file.path, "y"), 32U);
    CloseHandle(held);
}

TEST(FilesAdapter, AProgramThatIsNotThereIsNotStarted) {
    EXPECT_EQ(files.startProcess("C:\\NoSuchProgram.exe", true, 0x120), 2U);
}

TEST(FilesAdapter, AProgramIsStartedWithoutWaitingForIt) {
    EXPECT_EQ(files.startProcess("cmd.exe /c exit", true, 0x120), 0U);
}

TEST(FilesAdapter, TheProgramsFolderHoldsTheProgram) {
    const std::string folder = files.programFolder();
    EXPECT_NE(folder.back(), '\\');
    EXPECT_EQ(files.probeForReading(win32::executablePath()), 0U);
    EXPECT_EQ(win32::executablePath().rfind(folder + "\\", 0), 0U);
}

TEST(CommandLine, WhatFollowsTheNameIsKeptBlankForBlank) {
    EXPECT_EQ(win32::argumentsOf("Tollvane.exe"), "");
    EXPECT_EQ(win32::argumentsOf("Tollvane.exe "), "");
    EXPECT_EQ(win32::argumentsOf("Tollvane.exe  "), " ");
    EXPECT_EQ(win32::argumentsOf("Tollvane.exe /data x"), "/data x");
    EXPECT_EQ(win32::argumentsOf("\"C:\\Program Files\\Tollvane.exe\""), "");
    EXPECT_EQ(win32::argumentsOf("\"C:\\Program Files\\Tollvane.exe\"  "), " ");
    EXPECT_EQ(win32::argumentsOf("\"C:\\Program Files\\Tollvane.exe\" \"a b\"  c "), "\"a b\"  c ");
    EXPECT_EQ(win32::argumentsOf(""), "");
}

class Facts : public testing::Test {
protected:
    win32::Win32ProgramFacts facts{GetModuleHandleA(nullptr)};
};

TEST_F(Facts, TheProductNameComesFromTheVersionResource) {
    EXPECT_EQ(facts.productName(), "Tollvane");
}

TEST_F(Facts, TheExeNameHasNeitherFolderNorExtension) {
    EXPECT_EQ(facts.exeName(), "desktop_tests");
}

TEST_F(Facts, TheStringTableHoldsTheStates) {
    EXPECT_EQ(facts.resourceString(200), "AL");
    EXPECT_EQ(facts.resourceString(400), "Alabama");
}

TEST_F(Facts, AMissingStringRaises326) {
    try {
        facts.resourceString(199);
        ADD_FAILURE() << "a string was found";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 326);
    }
}

TEST_F(Facts, AskingForAnotherInstanceClaimsThePlace) {
    win32::Win32ProgramFacts second{GetModuleHandleA(nullptr)};
    EXPECT_FALSE(facts.anotherInstanceRuns());
    EXPECT_FALSE(facts.anotherInstanceRuns());
    EXPECT_TRUE(second.anotherInstanceRuns());
}

TEST_F(Facts, ThePlaceIsFreeAgainWhenItsHolderIsGone) {
    {
        win32::Win32ProgramFacts first{GetModuleHandleA(nullptr)};
        EXPECT_FALSE(first.anotherInstanceRuns());
    }
    EXPECT_FALSE(facts.anotherInstanceRuns());
}

TEST(LocaleAdapter, TellsASizeAndThenTheItem) {
    win32::Win32Locale locale;
    const std::uint32_t english = 0x0409;
    ASSERT_EQ(locale.info(english, LOCALE_SDECIMAL, nullptr, 0), 2);
    char text[2];
    EXPECT_EQ(locale.info(english, LOCALE_SDECIMAL, text, 2), 2);
    EXPECT_STREQ(text, ".");
    EXPECT_EQ(locale.info(english, 0xFFFF, nullptr, 0), 0);
    EXPECT_NE(locale.userDefault(), 0U);
    EXPECT_NE(locale.systemDefault(), 0U);
}

TEST(RandomAdapter, StaysBelowTheLimitAndReachesEveryNumber) {
    win32::Win32RandomNumbers random;
    random.seedFromClock();
    bool seen[4] = {};
    for (int i = 0; i < 500; ++i) {
        const int number = random.below(4);
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 4);
        seen[number] = true;
    }
    EXPECT_TRUE(seen[0] && seen[1] && seen[2] && seen[3]);
}

TEST(ScreenAdapter, IsMeasuredInTwips) {
    win32::Win32Screen screen;
    const int dpi = static_cast<int>(GetDpiForSystem());
    EXPECT_EQ(screen.widthInTwips(), GetSystemMetrics(SM_CXSCREEN) * 1440 / dpi);
    EXPECT_EQ(screen.heightInTwips(), GetSystemMetrics(SM_CYSCREEN) * 1440 / dpi);
}

} // namespace
} // namespace tollvane::test
