// The transaction log from the menus: the viewer, printing and opening through the shell.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr const char* kFolder = "C:\\Program Files\\Tollvane\\";
constexpr const char* kViewer = "C:\\Program Files\\Tollvane\\LogLens.exe";
constexpr const char* kLog = "C:\\ProgramData\\Tollvane\\Transactions.log";

class TransactionLog : public TillTest {
protected:
    void openWithLog() {
        till.desktop.files.addFile(kLog);
        till.open();
    }
    void choose(std::string_view name) { till.desktop.robot->chooseMenu(till.form(), name); }
    std::vector<FakeShell::Execution>& executions() { return till.desktop.shell.executions; }
    FakeShell::Execution verb(const char* name) {
        return {till.form().handle(), name, kLog, "", kFolder, kShowNormal};
    }
    static Message startError(const std::string& text) {
        return information("Application Start Error", text);
    }
};

TEST_F(TransactionLog, IsPrintedThroughTheShell) {
    openWithLog();
    choose("mnuPrinter");
    EXPECT_EQ(executions(), std::vector{verb("print")});
    EXPECT_NE(till.form().handle(), 0);
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(TransactionLog, IsOpenedThroughTheShell) {
    openWithLog();
    choose("mnuWindow");
    EXPECT_EQ(executions(), std::vector{verb("Open")});
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(TransactionLog, ThatVanishedSinceTheMenuOpenedIsLeftAlone) {
    openWithLog();
    till.desktop.robot->openMenu(till.form(), "mnuProgram");
    till.desktop.files.removeFile(kLog);
    for (const char* item : {"mnuPrinter", "mnuWindow"}) {
        till.form().control<MenuItem>(item).on.click();
    }
    EXPECT_TRUE(executions().empty());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(TransactionLog, WithoutAnAssociationForPrintingSaysSoByCode31) {
    openWithLog();
    till.desktop.shell.result = 31;
    choose("mnuPrinter");
    EXPECT_EQ(till.boxes(),
              std::vector{startError(
                  "Error launching Print.\n\nError = 31. There is no association for the specified "
                  "file type or if there is no association for the specified action within the "
                  "file type.")});
}

TEST_F(TransactionLog, AShellResultOf32IsAnUnknownErrorOfPrint) {
    openWithLog();
    till.desktop.shell.result = 32;
    choose("mnuPrinter");
    EXPECT_EQ(till.boxes(),
              std::vector{startError("An unknown error occurred trying to start Print")});
}

TEST_F(TransactionLog, AFailedOpeningIsReportedByItsOwnName) {
    openWithLog();
    till.desktop.shell.result = 5;
    choose("mnuWindow");
    EXPECT_EQ(till.boxes(),
              std::vector{startError(
                  "Error launching Open.\n\nError = 5. Attempt was made to dynamically link to a "
                  "task, or there was a sharing or network-protection error.")});
}

TEST_F(TransactionLog, AShellResultOf33IsASuccess) {
    openWithLog();
    till.desktop.shell.result = 33;
    choose("mnuWindow");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(TransactionLog, RunsTheViewerWithTheLogsFullPath) {
    till.desktop.files.addFile(kViewer);
    openWithLog();
    choose("mnu_Report");
    ASSERT_EQ(till.desktop.files.processes.size(), 1U);
    EXPECT_EQ(till.desktop.files.processes[0].commandLine,
              std::string("\"") + kViewer + "\" " + kLog);
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(TransactionLog, AViewerThatDoesNotStartIsReported) {
    till.desktop.files.addFile(kViewer);
    openWithLog();
    till.desktop.files.startError = 2;
    choose("mnu_Report");
    EXPECT_EQ(till.boxes(),
              std::vector{startError(
                  "Error launching Transaction Browser.\n\nError = 2. File was not found.")});
}

TEST_F(TransactionLog, ASystemErrorThatTheTableDoesNotKnowIsUnknown) {
    till.desktop.files.addFile(kViewer);
    openWithLog();
    till.desktop.files.startError = 193;
    choose("mnu_Report");
    EXPECT_EQ(till.boxes(), std::vector{startError("An unknown error occurred trying to start "
                                                   "Transaction Browser")});
}

TEST_F(TransactionLog, WithoutTheViewerTheMenuStartsWithThePrinter) {
    openWithLog();
    EXPECT_FALSE(till.form().control<MenuItem>("mnu_Report").visible());
    EXPECT_FALSE(till.form().control<MenuItem>("mnu_HSep").visible());
    choose("mnu_Report");
    EXPECT_TRUE(till.desktop.files.processes.empty());
}

TEST_F(TransactionLog, WithTheViewerALineStandsBelowIt) {
    till.desktop.files.addFile(kViewer);
    openWithLog();
    EXPECT_TRUE(till.form().control<MenuItem>("mnu_Report").visible());
    EXPECT_TRUE(till.form().control<MenuItem>("mnu_HSep").visible());
}

TEST_F(TransactionLog, AComponentThatCannotNameItsLogIsReported) {
    openWithLog();
    till.desktop.robot->openMenu(till.form(), "mnuProgram");
    till.desktop.record.failNext("charge.LogFileName", Error(70, "charge", "Permission denied"));
    till.form().control<MenuItem>("mnuWindow").on.click();
    EXPECT_EQ(till.boxes(), std::vector{information(
                                "", "There was an error opening the transaction history.\r\n\r\n"
                                    "Error: 70, Permission denied")});
}

struct LaunchRow {
    std::int32_t code;
    const char* text;
};

void PrintTo(const LaunchRow& row, std::ostream* out) {
    *out << row.code;
}

class LaunchError : public OpenTillTest, public ::testing::WithParamInterface<LaunchRow> {};

TEST_P(LaunchError, OfTheTableIsShownWithItsText) {
    till.program().ReportLaunchError(GetParam().code, "Thing");
    EXPECT_EQ(till.boxes(), std::vector{information("Application Start Error",
                                                    "Error launching Thing.\n\nError = " +
                                                        std::to_string(GetParam().code) + ". " +
                                                        GetParam().text)});
}

INSTANTIATE_TEST_SUITE_P(
    Code, LaunchError,
    ::testing::Values(
        LaunchRow{0, "System was out of memory, executable file was corrupt, or relocations were "
                     "invalid."},
        LaunchRow{2, "File was not found."}, LaunchRow{3, "Path was not found."},
        LaunchRow{5, "Attempt was made to dynamically link to a task, or there was a sharing or "
                     "network-protection error."},
        LaunchRow{6, "Library required separate data segments for each task."},
        LaunchRow{8, "There was insufficient memory to start the application."},
        LaunchRow{10, "Windows version was incorrect."},
        LaunchRow{11, "Executable file was invalid. Either it was not a Windows application or "
                      "there was an error in the .EXE image."},
        LaunchRow{12, "Application was designed for a different operating system."},
        LaunchRow{13, "Application was designed for MS-DOS 4.0."},
        LaunchRow{14, "Type of executable file was unknown."},
        LaunchRow{15, "Attempt was made to load a real-mode application (developed for an earlier "
                      "version of Windows)."},
        LaunchRow{16, "Attempt was made to load a second instance of an executable file containing "
                      "multiple data segments that were not marked read-only."},
        LaunchRow{19, "Attempt was made to load a compressed executable file. The file must be "
                      "decompressed before it can be loaded."},
        LaunchRow{20, "Dynamic-link library (DLL) file was invalid. One of the DLLs required to "
                      "run this application was corrupt."},
        LaunchRow{21, "Application requires Microsoft Windows 32-bit extensions."},
        LaunchRow{31, "There is no association for the specified file type or if there is no "
                      "association for the specified action within the file type."}),
    [](const auto& row) { return std::to_string(row.param.code); });

TEST_F(TransactionLog, CodesBesideTheTableAreUnknownErrors) {
    till.open();
    for (const std::int32_t code : {-1, 1, 4, 7, 9, 17, 18, 22, 30, 32, 33, 1155}) {
        till.program().ReportLaunchError(code, "Thing");
        EXPECT_EQ(till.boxes(),
                  std::vector{startError("An unknown error occurred trying to start Thing")})
            << code;
    }
}

} // namespace
} // namespace tollvane::test
