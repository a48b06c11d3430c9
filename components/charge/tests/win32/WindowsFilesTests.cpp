#include "components/charge/shell/SystemParts.h"
#include "components/charge/shell/WindowsFiles.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace tollvane::charge {
namespace {

// A folder of its own for each test, gone afterwards.
class WindowsFilesTest : public testing::Test {
public:
    WindowsFilesTest()
        : folder_((std::filesystem::temp_directory_path() /
                   (L"charge" + std::to_wstring(GetCurrentProcessId())))
                      .native()) {
        std::filesystem::remove_all(folder_.native());
    }
    WindowsFilesTest(const WindowsFilesTest&) = delete;
    WindowsFilesTest& operator=(const WindowsFilesTest&) = delete;
    ~WindowsFilesTest() override { std::filesystem::remove_all(folder_.native()); }

protected:
    WindowsFiles files;
    FilePath folder_;
    FilePath file_ = folder_ / "deep" / "f.dat";
};

TEST_F(WindowsFilesTest, AFileThatIsNotThereIsEmpty) {
    EXPECT_EQ("", files.read(file_));
    EXPECT_EQ(0u, files.size(file_));
    EXPECT_NO_THROW(files.truncate(file_, 0));
}

TEST_F(WindowsFilesTest, AppendMakesFolderAndFileAndAddsAtTheEnd) {
    files.append(file_, "one ");
    files.append(file_, std::string_view("t\0wo", 4));
    EXPECT_EQ(std::string("one t\0wo", 8), files.read(file_));
    EXPECT_EQ(8u, files.size(file_));
}

TEST_F(WindowsFilesTest, ReadStartsWhereItIsAsked) {
    files.append(file_, "0123456789");
    EXPECT_EQ("789", files.read(file_, 7));
    EXPECT_EQ("", files.read(file_, 10));
    EXPECT_EQ("", files.read(file_, 99));
}

TEST_F(WindowsFilesTest, LongFilesAreReadWhole) {
    const std::string much(3'000'000, 'x');
    files.append(file_, much);
    EXPECT_EQ(much, files.read(file_));
}

TEST_F(WindowsFilesTest, TruncateShortens) {
    files.append(file_, "0123456789");
    files.truncate(file_, 3);
    files.append(file_, "x");
    EXPECT_EQ("012x", files.read(file_));
}

TEST_F(WindowsFilesTest, AFailureNamesTheFileAndTheReason) {
    std::filesystem::create_directories(file_.native()); // a folder where the file should be
    try {
        files.append(file_, "x");
        FAIL() << "no error";
    } catch (const FileFailure& problem) {
        EXPECT_NE(std::string::npos, std::string(problem.what()).find("f.dat"));
        EXPECT_GT(std::string(problem.what()).size(), file_.native().size() + 5);
    }
}

TEST_F(WindowsFilesTest, AFolderThatCannotBeMadeIsAFailure) {
    files.append(file_, "x");
    EXPECT_THROW(files.append(file_ / "below" / "f.dat", "x"), FileFailure);
    EXPECT_THROW(files.lock(file_ / "below"), FileFailure);
}

TEST_F(WindowsFilesTest, AFileThatAnotherProgramWritesCannotBeAppendedTo) {
    files.append(file_, "x");
    const HANDLE other = CreateFileW(file_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, other);
    EXPECT_THROW(files.append(file_, "y"), FileFailure);
    CloseHandle(other);
    EXPECT_NO_THROW(files.append(file_, "y"));
}

TEST_F(WindowsFilesTest, TheLockKeepsEverybodyElseOutWhileItLives) {
    const auto openLock = [this] {
        const HANDLE handle = CreateFileW((folder_ / "zendacard.lck").c_str(), GENERIC_WRITE, 0,
                                          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        const bool open = handle != INVALID_HANDLE_VALUE;
        if (open)
            CloseHandle(handle);
        return open;
    };
    {
        const auto lock = files.lock(folder_);
        EXPECT_FALSE(openLock());
    }
    EXPECT_TRUE(openLock());
    EXPECT_NO_THROW(files.lock(folder_));
}

TEST(SystemParts, KeysAreTwentyLettersAndNeverTheSame) {
    std::set<std::string> keys;
    for (int i = 0; i < 1000; ++i) {
        const std::string key = newOperationKey();
        ASSERT_EQ(20u, key.size());
        ASSERT_TRUE(
            std::all_of(key.begin(), key.end(), [](char c) { return c >= 'A' && c <= 'Z'; }));
        ASSERT_TRUE(keys.insert(key).second);
    }
}

TEST(SystemParts, TheClockGoesWithTheSystems) {
    SystemClock clock;
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    Moment moment;
    do { // again when the second changes in between
        GetLocalTime(&before);
        moment = clock.now();
        GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    EXPECT_EQ(before.wYear, moment.year);
    EXPECT_EQ(before.wMonth, moment.month);
    EXPECT_EQ(before.wDay, moment.day);
    EXPECT_EQ(before.wHour, moment.hour);
    EXPECT_EQ(before.wMinute, moment.minute);
    EXPECT_EQ(before.wSecond, moment.second);
    EXPECT_GT(moment.epochSeconds, 1'700'000'000);
}

} // namespace
} // namespace tollvane::charge
