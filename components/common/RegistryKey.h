// Move-only owner of a registry key, with the few reads and writes that components need. The 64-bit
// and the 32-bit program see the same machine-wide settings only through the default view; none is
// forced here.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tollvane::com {

class RegistryKey {
public:
    // Opens for reading; an empty owner when the key does not exist. Other failures raise
    // ComponentError with the system's code.
    static RegistryKey openForReading(HKEY root, const std::wstring& path);
    // Opens for reading and writing, creating what is missing. Raises ComponentError.
    static RegistryKey create(HKEY root, const std::wstring& path);

    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    explicit operator bool() const noexcept { return key_ != nullptr; }

    // Nothing when the key is empty or the value is missing or of another type.
    std::optional<std::wstring> text(const std::wstring& name) const;
    std::optional<std::uint32_t> number(const std::wstring& name) const;

    // Raise ComponentError.
    void setText(const std::wstring& name, const std::wstring& text);
    void setNumber(const std::wstring& name, std::uint32_t number);

private:
    explicit RegistryKey(HKEY key) noexcept : key_(key) {}

    HKEY key_ = nullptr;
};

} // namespace tollvane::com
