#include "components/common/RegistryKey.h"

#include "components/common/ComFailure.h"

#include <utility>

namespace tollvane::com {

RegistryKey RegistryKey::openForReading(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key);
    if (status == ERROR_FILE_NOT_FOUND)
        return RegistryKey(nullptr);
    if (status != ERROR_SUCCESS)
        throwLastError(static_cast<DWORD>(status));
    return RegistryKey(key);
}

RegistryKey RegistryKey::create(HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                           nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        throwLastError(static_cast<DWORD>(status));
    return RegistryKey(key);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    std::swap(key_, other.key_);
    return *this;
}

RegistryKey::~RegistryKey() {
    if (key_)
        RegCloseKey(key_);
}

std::optional<std::wstring> RegistryKey::text(const std::wstring& name) const {
    DWORD bytes = 0;
    if (!key_ || RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr,
                              &bytes) != ERROR_SUCCESS)
        return std::nullopt;
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    if (RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS)
        return std::nullopt;
    text.resize(bytes / sizeof(wchar_t));
    while (!text.empty() && text.back() == L'\0')
        text.pop_back();
    return text;
}

std::optional<std::uint32_t> RegistryKey::number(const std::wstring& name) const {
    DWORD value = 0;
    DWORD bytes = sizeof value;
    if (!key_ || RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_DWORD, nullptr, &value,
                              &bytes) != ERROR_SUCCESS)
        return std::nullopt;
    return value;
}

void RegistryKey::setText(const std::wstring& name, const std::wstring& text) {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status = RegSetValueExW(key_, name.c_str(), 0, REG_SZ,
                                          reinterpret_cast<const BYTE*>(text.c_str()), bytes);
    if (status != ERROR_SUCCESS)
        throwLastError(static_cast<DWORD>(status));
}

void RegistryKey::setNumber(const std::wstring& name, std::uint32_t number) {
    const DWORD value = number;
    const LSTATUS status = RegSetValueExW(key_, name.c_str(), 0, REG_DWORD,
                                          reinterpret_cast<const BYTE*>(&value), sizeof value);
    if (status != ERROR_SUCCESS)
        throwLastError(static_cast<DWORD>(status));
}

} // namespace tollvane::com
