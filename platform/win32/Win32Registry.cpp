#include "platform/win32/Win32Registry.h"

#include <windows.h>

namespace tollvane::win32 {

namespace {

// The port counts in 32-bit types of the standard library; the system's DWORD has the same width.
static_assert(sizeof(DWORD) == sizeof(std::uint32_t));
static_assert(sizeof(FILETIME) == sizeof(RegistryTime));

HKEY system(RegistryKey key) {
    return reinterpret_cast<HKEY>(key); // NOLINT(performance-no-int-to-ptr)
}

DWORD* system(std::uint32_t* number) {
    return reinterpret_cast<DWORD*>(number);
}

} // namespace

long Win32Registry::openKeyEx(RegistryKey root, const char* subKey, std::uint32_t options,
                              std::uint32_t access, RegistryKey* key) {
    HKEY opened = nullptr;
    const long status = RegOpenKeyExA(system(root), subKey, options, access, &opened);
    *key = reinterpret_cast<RegistryKey>(opened);
    return status;
}

long Win32Registry::createKeyEx(RegistryKey root, const char* subKey, std::uint32_t reserved,
                                const char* className, std::uint32_t options, std::uint32_t access,
                                void* security, RegistryKey* key, std::uint32_t* disposition) {
    HKEY opened = nullptr;
    // The class is read only, whatever the system's declaration says.
    const long status = RegCreateKeyExA(
        system(root), subKey, reserved, const_cast<char*>(className), options, access,
        static_cast<SECURITY_ATTRIBUTES*>(security), &opened, system(disposition));
    *key = reinterpret_cast<RegistryKey>(opened);
    return status;
}

long Win32Registry::queryValueEx(RegistryKey key, const char* name, std::uint32_t* reserved,
                                 std::uint32_t* type, std::uint8_t* data, std::uint32_t* size) {
    return RegQueryValueExA(system(key), name, system(reserved), system(type), data, system(size));
}

long Win32Registry::setValueEx(RegistryKey key, const char* name, std::uint32_t reserved,
                               std::uint32_t type, const std::uint8_t* data, std::uint32_t size) {
    return RegSetValueExA(system(key), name, reserved, type, data, size);
}

long Win32Registry::deleteValue(RegistryKey key, const char* name) {
    return RegDeleteValueA(system(key), name);
}

long Win32Registry::deleteKey(RegistryKey key, const char* subKey) {
    return RegDeleteKeyA(system(key), subKey);
}

long Win32Registry::enumKeyEx(RegistryKey key, std::uint32_t index, char* name,
                              std::uint32_t* nameSize, std::uint32_t* reserved, char* className,
                              std::uint32_t* classSize, RegistryTime* lastWrite) {
    return RegEnumKeyExA(system(key), index, name, system(nameSize), system(reserved), className,
                         system(classSize), reinterpret_cast<FILETIME*>(lastWrite));
}

long Win32Registry::enumValue(RegistryKey key, std::uint32_t index, char* name,
                              std::uint32_t* nameSize, std::uint32_t* reserved, std::uint32_t* type,
                              std::uint8_t* data, std::uint32_t* size) {
    return RegEnumValueA(system(key), index, name, system(nameSize), system(reserved), system(type),
                         data, system(size));
}

long Win32Registry::closeKey(RegistryKey key) {
    return RegCloseKey(system(key));
}

std::uint32_t Win32Registry::formatMessage(std::uint32_t flags, const void* source,
                                           std::uint32_t code, std::uint32_t language, char* buffer,
                                           std::uint32_t size, void* arguments) {
    const DWORD length = FormatMessageA(flags, source, code, language, buffer, size,
                                        static_cast<va_list*>(arguments));
    lastError_ = GetLastError();
    return length;
}

} // namespace tollvane::win32
