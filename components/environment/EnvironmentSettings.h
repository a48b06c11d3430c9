// What the machine's settings say about the environment.
#pragma once

#include <string>

namespace tollvane::environment {

// A value under HKEY_LOCAL_MACHINE, "Software\Norrow Programs\Environment"; empty when missing.
[[nodiscard]] std::wstring readSetting(const wchar_t* name);

// The machine's folder for application data, with the shop's part added.
[[nodiscard]] std::wstring defaultDataPath();

[[nodiscard]] std::wstring computerName();

} // namespace tollvane::environment
