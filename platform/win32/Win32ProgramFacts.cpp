#include "platform/win32/Win32ProgramFacts.h"

#include "platform/Error.h"
#include "platform/win32/Win32Files.h"

#include <vector>

namespace tollvane::win32 {

namespace {

constexpr long kResourceNotFound = 326;

/// The product name of the version resource's first language; empty when there is none.
std::string versionProductName() {
    const std::string path = executablePath();
    const DWORD size = GetFileVersionInfoSizeA(path.c_str(), nullptr);
    std::vector<char> block(size);
    if (size == 0 || !GetFileVersionInfoA(path.c_str(), 0, size, block.data())) {
        return {};
    }
    struct Translation {
        WORD language;
        WORD codePage;
    };
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &found, &length) ||
        length < sizeof(Translation)) {
        return {};
    }
    const auto* translation = static_cast<const Translation*>(found);
    char entry[64];
    wsprintfA(entry, "\\StringFileInfo\\%04x%04x\\ProductName", translation->language,
              translation->codePage);
    if (!VerQueryValueA(block.data(), entry, &found, &length) || length == 0) {
        return {};
    }
    return {static_cast<const char*>(found)};
}

} // namespace

std::string argumentsOf(const std::string& wholeCommandLine) {
    const bool quoted = !wholeCommandLine.empty() && wholeCommandLine.front() == '"';
    const std::size_t end = quoted ? wholeCommandLine.find('"', 1) : wholeCommandLine.find(' ');
    if (end == std::string::npos) {
        return {};
    }
    const std::size_t afterName = quoted ? end + 1 : end;
    const std::size_t separator =
        afterName < wholeCommandLine.size() && wholeCommandLine[afterName] == ' ' ? 1 : 0;
    return wholeCommandLine.substr(afterName + separator);
}

std::string Win32ProgramFacts::exeName() {
    const std::string path = executablePath();
    const std::size_t slash = path.find_last_of('\\');
    const std::string file = slash == std::string::npos ? path : path.substr(slash + 1);
    return file.substr(0, file.find_last_of('.'));
}

std::string Win32ProgramFacts::productName() {
    if (productName_.empty()) {
        productName_ = versionProductName();
    }
    return productName_.empty() ? exeName() : productName_;
}

std::string Win32ProgramFacts::commandLine() {
    return argumentsOf(GetCommandLineA());
}

bool Win32ProgramFacts::anotherInstanceRuns() {
    if (!anotherRuns_) {
        const std::string name = "Local\\" + productName() + ".Instance";
        place_.reset(CreateMutexA(nullptr, FALSE, name.c_str()));
        anotherRuns_ = GetLastError() == ERROR_ALREADY_EXISTS || !place_;
    }
    return *anotherRuns_;
}

std::string Win32ProgramFacts::resourceString(unsigned id) {
    std::vector<char> buffer(256);
    for (;;) {
        const int size = static_cast<int>(buffer.size());
        const int length = LoadStringA(instance_, id, buffer.data(), size);
        if (length == 0) {
            throw Error(kResourceNotFound, exeName(),
                        "Resource with identifier '" + std::to_string(id) + "' not found");
        }
        if (length < size - 1) {
            return {buffer.data(), static_cast<std::size_t>(length)};
        }
        buffer.resize(buffer.size() * 2);
    }
}

} // namespace tollvane::win32
