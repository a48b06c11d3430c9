#include "components/charge/core/FilePath.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tollvane::charge {
namespace {

const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));

TEST(FilePath, JoinsFolderAndNameByTheSystemsSeparator) {
    EXPECT_EQ("data" + separator + "journal.dat", (FilePath("data") / "journal.dat").plainText());
    EXPECT_EQ("data/journal.dat", (FilePath("data/") / "journal.dat").plainText());
    EXPECT_EQ("C:\\journal.dat", (FilePath("C:\\") / "journal.dat").plainText());
    EXPECT_EQ("journal.dat", (FilePath() / "journal.dat").plainText());
}

TEST(FilePath, TellsFolderAndName) {
    const FilePath path("C:\\Data/Zendacard\\journal.dat");
    EXPECT_EQ("C:\\Data/Zendacard", path.folder().plainText());
    EXPECT_EQ("journal.dat", path.name().plainText());
    EXPECT_TRUE(FilePath("journal.dat").folder().empty());
    EXPECT_EQ("journal.dat", FilePath("journal.dat").name().plainText());
}

TEST(FilePath, KeepsEveryLetterAndShowsAsciiOnly) {
    const FilePath path(std::wstring(L"K\u00E4\u6F22se.log"));
    EXPECT_EQ(L"K\u00E4\u6F22se.log", path.native());
    EXPECT_EQ("K??se.log", path.plainText());
    EXPECT_NE(path, FilePath("K??se.log"));
    EXPECT_EQ(path, FilePath(path.native()));
}

} // namespace
} // namespace tollvane::charge
