#include "platform/win32/Win32Files.h"

#include "platform/win32/Handles.h"

#include <vector>

namespace tollvane::win32 {

std::string executablePath() {
    std::vector<char> buffer(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(buffer.size());
        const DWORD length = GetModuleFileNameA(nullptr, buffer.data(), size);
        if (length < size) {
            return {buffer.data(), length};
        }
        buffer.resize(buffer.size() * 2);
    }
}

std::uint32_t Win32Files::probeForReading(const std::string& path) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    CloseHandle(file);
    return ERROR_SUCCESS;
}

std::string Win32Files::findFile(const std::string& path) {
    WIN32_FIND_DATAA found{};
    const HANDLE search = FindFirstFileA(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return {};
    }
    FindClose(search);
    return found.cFileName;
}

std::uint32_t Win32Files::setAttributes(const std::string& path, std::uint32_t attributes) {
    return SetFileAttributesA(path.c_str(), attributes) ? ERROR_SUCCESS : GetLastError();
}

std::uint32_t Win32Files::append(const std::string& path, std::string_view bytes) {
    const HANDLE opened = CreateFileA(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        return GetLastError();
    }
    const KernelHandle file(opened);
    DWORD written = 0;
    const auto size = static_cast<DWORD>(bytes.size());
    if (!WriteFile(file.get(), bytes.data(), size, &written, nullptr)) {
        return GetLastError();
    }
    // A disk without room for all of it takes a part and calls that a success.
    return written == size ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

std::string Win32Files::profileString(const std::string& section, const std::string& key,
                                      const std::string& fallback, std::uint32_t bufferSize,
                                      const std::string& file) {
    std::vector<char> buffer(bufferSize);
    const DWORD length = GetPrivateProfileStringA(section.c_str(), key.c_str(), fallback.c_str(),
                                                  buffer.data(), bufferSize, file.c_str());
    return {buffer.data(), length};
}

std::uint32_t Win32Files::startProcess(const std::string& commandLine, bool inheritHandles,
                                       std::uint32_t creationFlags) {
    // The system may write into the command line while it takes it apart.
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, inheritHandles ? TRUE : FALSE,
                        creationFlags, nullptr, nullptr, &start, &process)) {
        return GetLastError();
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ERROR_SUCCESS;
}

std::string Win32Files::programFolder() {
    std::string path = executablePath();
    const std::size_t slash = path.find_last_of('\\');
    // The root of a drive keeps its backslash: "C:" alone names the drive's current folder.
    const bool root = slash == 2 && path[1] == ':';
    return path.substr(0, root ? slash + 1 : slash);
}

} // namespace tollvane::win32
