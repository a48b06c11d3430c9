// For the tests that run elsewhere than on Windows.
#include "components/hostdata/store/StoreFiles.h"

#include <filesystem>

namespace tollvane::hostdata {

namespace {
std::filesystem::path pathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}
} // namespace

bool fileExists(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(pathOf(path), ignored);
}

std::uint64_t fileSize(const std::string& path) {
    std::error_code problem;
    const auto size = std::filesystem::file_size(pathOf(path), problem);
    return problem ? 0 : size;
}

bool isSameFile(const std::string& one, const std::string& other) {
    std::error_code ignored;
    return std::filesystem::equivalent(pathOf(one), pathOf(other), ignored);
}

void makeFoldersOf(const std::string& path) {
    std::error_code ignored;
    std::filesystem::create_directories(pathOf(path).parent_path(), ignored);
}

std::error_code moveFile(const std::string& path, const std::string& target) {
    std::error_code problem;
    std::filesystem::rename(pathOf(path), pathOf(target), problem);
    return problem;
}

void removeFile(const std::string& path) noexcept {
    std::error_code ignored;
    std::filesystem::remove(pathOf(path), ignored);
}

} // namespace tollvane::hostdata
