#include "components/hostdata/store/StoreFiles.h"

#include "components/hostdata/tests/TestSupport.h"

#include <filesystem>
#include <fstream>

namespace tollvane::hostdata {
namespace {

// Folders with letters beyond ASCII, gone with the test.
class StoreFiles : public ::testing::Test {
protected:
    ~StoreFiles() override { std::filesystem::remove_all(top()); }

    static std::filesystem::path top() {
        return std::filesystem::temp_directory_path() / u8"tollvane-store-files-\u00E4\u6F22";
    }
    // Two folders deep.
    static std::string path(const char* name) {
        const auto text = (top() / "inner" / name).u8string();
        return {text.begin(), text.end()};
    }
    static void write(const std::string& path, const std::string& bytes) {
        std::ofstream file(std::filesystem::path(std::u8string(path.begin(), path.end())),
                           std::ios::binary);
        file << bytes;
    }
};

TEST_F(StoreFiles, AFilesFoldersAreMadeAllTheWayDown) {
    makeFoldersOf(path("a.db"));
    EXPECT_TRUE(std::filesystem::is_directory(top() / "inner"));
    makeFoldersOf(path("a.db")); // they are there already
    write(path("a.db"), "12345");
    EXPECT_TRUE(fileExists(path("a.db")));
    EXPECT_EQ(fileSize(path("a.db")), 5U);
}

TEST_F(StoreFiles, AFileThatIsNotThereHasNoSize) {
    EXPECT_FALSE(fileExists(path("a.db")));
    EXPECT_EQ(fileSize(path("a.db")), 0U);
    removeFile(path("a.db"));
}

TEST_F(StoreFiles, OneFileIsTheSameHoweverItIsWritten) {
    makeFoldersOf(path("a.db"));
    write(path("a.db"), "a");
    write(path("b.db"), "a");
    EXPECT_TRUE(isSameFile(path("a.db"), path("../inner/a.db")));
    EXPECT_FALSE(isSameFile(path("a.db"), path("b.db")));
    EXPECT_FALSE(isSameFile(path("a.db"), path("none.db")));
    EXPECT_FALSE(isSameFile(path("none.db"), path("none.db")));
}

TEST_F(StoreFiles, AMovedFileReplacesWhatIsThere) {
    makeFoldersOf(path("a.db"));
    write(path("a.db"), "new one");
    write(path("b.db"), "old");
    EXPECT_FALSE(moveFile(path("a.db"), path("b.db")));
    EXPECT_FALSE(fileExists(path("a.db")));
    EXPECT_EQ(fileSize(path("b.db")), 7U);
    removeFile(path("b.db"));
    EXPECT_FALSE(fileExists(path("b.db")));
}

TEST_F(StoreFiles, AMoveThatFailsTellsWhy) {
    makeFoldersOf(path("a.db"));
    const std::error_code problem = moveFile(path("none.db"), path("b.db"));
    EXPECT_TRUE(problem);
    EXPECT_FALSE(problem.message().empty());
}

} // namespace
} // namespace tollvane::hostdata
