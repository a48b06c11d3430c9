#include "tests/desktop/FakeFiles.h"

#include "tests/desktop/FaultPlan.h"

#include <algorithm>

namespace tollvane::test {

namespace {
constexpr std::uint32_t kFileNotFound = 2;
constexpr std::uint32_t kAccessDenied = 5;
} // namespace

std::string FakeFiles::lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

std::string FakeFiles::iniKey(const std::string& file, const std::string& section,
                              const std::string& key) {
    return lower(file) + "\n" + lower(section) + "\n" + lower(key);
}

std::uint32_t FakeFiles::probeForReading(const std::string& path) {
    probed.push_back(path);
    if (faults_.strikes(Port::files, "probeForReading")) {
        return static_cast<std::uint32_t>(faults_.number());
    }
    const auto found = files_.find(lower(path));
    return found == files_.end() ? kFileNotFound : found->second.openError;
}

std::string FakeFiles::baseName(const std::string& path) {
    return path.substr(path.find_last_of('\\') + 1);
}

std::string FakeFiles::findFile(const std::string& path) {
    const auto found = files_.find(lower(path));
    return found == files_.end() ? std::string() : found->second.name;
}

std::uint32_t FakeFiles::setAttributes(const std::string& path, std::uint32_t attributes) {
    if (faults_.strikes(Port::files, "setAttributes")) {
        return static_cast<std::uint32_t>(faults_.number());
    }
    const auto found = files_.find(lower(path));
    if (found == files_.end()) {
        return kFileNotFound;
    }
    found->second.attributes = attributes;
    return 0;
}

std::uint32_t FakeFiles::append(const std::string& path, std::string_view bytes) {
    if (faults_.strikes(Port::files, "append")) {
        return static_cast<std::uint32_t>(faults_.number());
    }
    if (files_.count(lower(path)) == 0) {
        addFile(path);
    }
    File& file = files_[lower(path)];
    if (file.openError != 0) {
        return file.openError;
    }
    if ((file.attributes & fileattribute::readOnly) != 0) {
        return kAccessDenied;
    }
    file.contents += bytes;
    return 0;
}

std::string FakeFiles::contents(const std::string& path) const {
    const auto found = files_.find(lower(path));
    return found == files_.end() ? std::string() : found->second.contents;
}

std::uint32_t FakeFiles::attributes(const std::string& path) const {
    const auto found = files_.find(lower(path));
    return found == files_.end() ? 0 : found->second.attributes;
}

std::string FakeFiles::profileString(const std::string& section, const std::string& key,
                                     const std::string& fallback, std::uint32_t bufferSize,
                                     const std::string& file) {
    if (faults_.strikes(Port::files, "profileString")) {
        return {};
    }
    const auto found = ini_.find(iniKey(file, section, key));
    const std::string& value = found == ini_.end() ? fallback : found->second;
    return bufferSize == 0 ? std::string() : value.substr(0, bufferSize - 1);
}

std::uint32_t FakeFiles::startProcess(const std::string& commandLine, bool inheritHandles,
                                      std::uint32_t creationFlags) {
    processes.push_back({commandLine, inheritHandles, creationFlags});
    if (faults_.strikes(Port::files, "startProcess")) {
        return static_cast<std::uint32_t>(faults_.number());
    }
    return startError;
}

void FakeFiles::setIni(const std::string& file, const std::string& section, const std::string& key,
                       const std::string& value) {
    ini_[iniKey(file, section, key)] = value;
}

} // namespace tollvane::test
