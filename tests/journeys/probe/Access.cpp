#include "tests/journeys/probe/Access.h"

#include <vector>

#include <sddl.h>

namespace tollvane::probe {

namespace {

// Only the rights to set values and to create keys: others are asked for by readers, too.
constexpr const char* kReadOnly = "D:(D;;0x6;;;WD)(A;;KA;;;WD)";
constexpr REGSAM kNeeded = READ_CONTROL | WRITE_DAC | KEY_ENUMERATE_SUB_KEYS;

LSTATUS denyWriting(HKEY key) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorA(kReadOnly, SDDL_REVISION_1,
                                                             &descriptor, nullptr) == FALSE) {
        return static_cast<LSTATUS>(GetLastError());
    }
    const LSTATUS error = RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor);
    LocalFree(descriptor);
    return error;
}

std::vector<std::string> keysBelow(HKEY key) {
    std::vector<std::string> names;
    char name[256];
    for (DWORD size = sizeof name;
         RegEnumKeyExA(key, static_cast<DWORD>(names.size()), name, &size, nullptr, nullptr,
                       nullptr, nullptr) == ERROR_SUCCESS;
         size = sizeof name) {
        names.emplace_back(name, size);
    }
    return names;
}

} // namespace

LSTATUS lockKey(const std::string& path) {
    HKEY key = nullptr;
    if (const LSTATUS error = RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, kNeeded, &key)) {
        return error;
    }
    const std::vector<std::string> below = keysBelow(key);
    LSTATUS error = denyWriting(key);
    RegCloseKey(key);
    for (std::size_t i = 0; i < below.size() && error == ERROR_SUCCESS; ++i) {
        error = lockKey(path + "\\" + below[i]);
    }
    return error;
}

} // namespace tollvane::probe
