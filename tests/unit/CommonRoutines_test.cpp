#include "app/CommonRoutines.h"
#include "controls/AutoFormatTextbox.h"
#include "tests/desktop/FakeFiles.h"
#include "tests/desktop/FakeLocale.h"
#include "tests/desktop/FaultPlan.h"
#include "tests/desktop/TestDesktop.h"
#include "tests/scenarios/TracedForm.h"

#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

class FileRoutines : public testing::Test {
protected:
    FaultPlan faults;
    FakeFiles files{faults};
};

TEST_F(FileRoutines, AFileThatCanBeOpenedExists) {
    files.addFile("C:\\Data\\list.txt");
    EXPECT_TRUE(FileExists(files, "C:\\Data\\list.txt"));
}

TEST_F(FileRoutines, AFileThatAnotherProgramHoldsOpenExists) {
    files.addFile("C:\\Data\\list.txt", 32);
    EXPECT_TRUE(FileExists(files, "C:\\Data\\list.txt"));
}

TEST_F(FileRoutines, AFileThatCannotBeOpenedOtherwiseDoesNotExist) {
    EXPECT_FALSE(FileExists(files, "C:\\Data\\list.txt"));
    for (const std::uint32_t error : {2U, 3U, 5U, 33U, 123U}) {
        files.addFile("C:\\Data\\list.txt", error);
        EXPECT_FALSE(FileExists(files, "C:\\Data\\list.txt")) << error;
    }
}

TEST_F(FileRoutines, AnEmptyPathIsNoFileAndIsNotEvenTried) {
    EXPECT_FALSE(FileExists(files, ""));
    EXPECT_TRUE(files.probed.empty());
}

TEST_F(FileRoutines, AnIniValueIsReadFromItsSection) {
    files.setIni("CARDAUTH.INI", "Form", "Left", "1200");
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI"), "1200");
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI", "7"), "1200");
}

TEST_F(FileRoutines, AnIniValueOfAMissingFileIsNotFound) {
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI"), "Not found");
}

TEST_F(FileRoutines, AMissingIniValueIsTheDefaultWhenThereIsOne) {
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI", "7"), "7");
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI", ""), "");
}

TEST_F(FileRoutines, AnIniValueThatSaysNotFoundInOtherLettersIsAValue) {
    files.setIni("CARDAUTH.INI", "Form", "Left", "not found");
    EXPECT_EQ(ReadIniValue(files, "Form", "Left", "CARDAUTH.INI", "7"), "not found");
}

/// Notes what the private-profile reader is asked for.
class NotingFiles : public FakeFiles {
public:
    using FakeFiles::FakeFiles;
    std::string profileString(const std::string& section, const std::string& key,
                              const std::string& fallback, std::uint32_t bufferSize,
                              const std::string& file) override {
        size = bufferSize;
        asked = fallback;
        return FakeFiles::profileString(section, key, fallback, bufferSize, file);
    }
    std::uint32_t size = 0;
    std::string asked;
};

TEST_F(FileRoutines, TheIniReaderGetsABufferOf2555Characters) {
    NotingFiles noting(faults);
    ReadIniValue(noting, "Form", "Left", "CARDAUTH.INI", "7");
    EXPECT_EQ(noting.size, 2555U);
    EXPECT_EQ(noting.asked, "Not found");
}

TEST_F(FileRoutines, TheProgramsFolderEndsInABackslash) {
    files.folder = "C:\\Program Files\\Tollvane";
    EXPECT_EQ(AppFolder(files), "C:\\Program Files\\Tollvane\\");
}

TEST_F(FileRoutines, TheFolderOfAProgramInADrivesRootKeepsItsOneBackslash) {
    files.folder = "C:\\";
    EXPECT_EQ(AppFolder(files), "C:\\");
}

TEST_F(FileRoutines, AProgramIsStartedWithInheritedHandlesAndItsFlags) {
    EXPECT_EQ(RunProgram(files, "C:\\Till\\loglens.exe", ""), 0U);
    ASSERT_EQ(files.processes.size(), 1U);
    EXPECT_EQ(files.processes[0].commandLine, "C:\\Till\\loglens.exe");
    EXPECT_TRUE(files.processes[0].inheritHandles);
    EXPECT_EQ(files.processes[0].creationFlags, 0x120U);
}

TEST_F(FileRoutines, ProgramAndArgumentsAreQuotedWhenTheyHoldABlank) {
    RunProgram(files, "C:\\My Till\\loglens.exe", "a b");
    RunProgram(files, "C:\\Till\\loglens.exe", "a b");
    RunProgram(files, "C:\\My Till\\loglens.exe", "ab");
    ASSERT_EQ(files.processes.size(), 3U);
    EXPECT_EQ(files.processes[0].commandLine, "\"C:\\My Till\\loglens.exe\" \"a b\"");
    EXPECT_EQ(files.processes[1].commandLine, "C:\\Till\\loglens.exe \"a b\"");
    EXPECT_EQ(files.processes[2].commandLine, "\"C:\\My Till\\loglens.exe\" ab");
}

TEST_F(FileRoutines, AProgramThatDoesNotStartAnswersTheSystemsError) {
    files.startError = 2;
    EXPECT_EQ(RunProgram(files, "loglens.exe", ""), 2U);
}

TEST(CapitalizePath, MakesEveryWordStartWithACapital) {
    EXPECT_EQ(CapitalizePath("c:\\data\\shop one"), "C:\\Data\\Shop One");
    EXPECT_EQ(CapitalizePath("ABC def"), "Abc Def");
    EXPECT_EQ(CapitalizePath("c:data/new SHOP"), "C:Data/New Shop");
}

TEST(CapitalizePath, TakesOtherSignsForLetters) {
    EXPECT_EQ(CapitalizePath("o'NEIL-smith_x.TXT"), "O'neil-smith_x.txt");
}

TEST(CapitalizePath, TrimsItsText) {
    EXPECT_EQ(CapitalizePath("  shop  "), "Shop");
    EXPECT_EQ(CapitalizePath("   "), "");
    EXPECT_EQ(CapitalizePath(""), "");
}

TEST(NumberFromText, ReadsTheNumberThatATextStartsWith) {
    EXPECT_EQ(numberFromText("1200"), 1200);
    EXPECT_EQ(numberFromText(" -15 twips"), -15);
    EXPECT_EQ(numberFromText("+1.5"), 1.5);
    EXPECT_EQ(numberFromText("1 200"), 1200);
    EXPECT_EQ(numberFromText("1e3"), 1000);
    EXPECT_EQ(numberFromText("12,5"), 12);
}

TEST(NumberFromText, ReadsZeroWhereThereIsNoNumber) {
    for (const char* text : {"Not found", "", "-", "inf", "nan", "-nan", "x1", "--1", "."}) {
        EXPECT_EQ(numberFromText(text), 0) << text;
    }
}

class LocaleRoutines : public testing::Test {
protected:
    static constexpr std::uint32_t kCurrencySymbol = 0x14;
    FaultPlan faults;
    FakeLocale locale{faults};
};

TEST_F(LocaleRoutines, TheSystemsTheUsersAndAnyLocaleCanBeAsked) {
    locale.system = localeid::unitedStates;
    locale.user = localeid::switzerland;
    EXPECT_EQ(GetLocaleValue(locale, kCurrencySymbol, kSystemLocale), "$");
    EXPECT_EQ(GetLocaleValue(locale, kCurrencySymbol, kUserLocale), "CHF");
    EXPECT_EQ(GetLocaleValue(locale, kCurrencySymbol, localeid::unitedKingdom), "\xA3");
}

TEST_F(LocaleRoutines, AnItemThatIsNotThereIsEmpty) {
    EXPECT_EQ(GetLocaleValue(locale, 0xFFFF, kUserLocale), "");
    EXPECT_EQ(GetLocaleValue(locale, kCurrencySymbol, 0x7777), "");
}

TEST(DigitsOnly, LeavesABoxAloneWhoseStyleCannotBeRead) {
    TestDesktop desk;
    TracedForm traced(*desk.forms);
    TextBox& box = traced.box("txtFirst");
    box.setWindowStyle(0);

    EXPECT_EQ(SetDigitsOnly(box), 0U);

    EXPECT_EQ(box.windowStyle(), 0U);
}

TEST(FormatTypes, LeaveABoxAloneWhoseStyleCannotBeRead) {
    TestDesktop desk;
    TracedForm traced(*desk.forms);
    TextBox& box = traced.box("txtFirst");
    AutoFormatTextbox format(desk.locale);
    format.SetTextBox(box);
    box.setWindowStyle(0);

    format.SetFormatType(formattype::lowerCase);

    EXPECT_EQ(box.windowStyle(), 0U);
}

} // namespace
} // namespace tollvane::test
