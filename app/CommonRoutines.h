#pragma once

#include "platform/Controls.h"
#include "platform/Files.h"
#include "platform/Surroundings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tollvane {

/// What ReadIniValue answers when there is no such value and no default.
inline constexpr std::string_view kIniValueNotFound = "Not found";

/// True also for a file that another process holds open. Raises nothing.
bool FileExists(Files& files, const std::string& path);

/// A value of an INI file; `fallback`, or else kIniValueNotFound, when it is missing.
std::string ReadIniValue(Files& files, const std::string& section, const std::string& key,
                         const std::string& file,
                         const std::optional<std::string>& fallback = std::nullopt);

/// The program's own folder with a closing "\".
std::string AppFolder(Files& files);

/// Trimmed, with a capital at the start and behind "/", "\", ":" and blanks, small letters
/// elsewhere.
std::string CapitalizePath(std::string_view text);

/// Selects the box's text; unless `always`, only when the left mouse button is up, so that a click
/// into the box can place the caret. Raises nothing.
void SelectAllText(Mouse& mouse, TextBox& box, bool always);

/// Makes the box drop typed characters other than digits. Returns the style before, or 0.
std::uint32_t SetDigitsOnly(TextBox& box);

/// Starts a program without waiting for it. Returns 0 or the system's error number.
std::uint32_t RunProgram(Files& files, const std::string& program, const std::string& arguments);

/// Which locale GetLocaleValue asks; any other number is a locale's own.
inline constexpr std::uint32_t kSystemLocale = 0;
inline constexpr std::uint32_t kUserLocale = 1;

/// An item of a locale, empty when there is none.
std::string GetLocaleValue(Locale& locale, std::uint32_t item, std::uint32_t which);

/// The number that a text starts with, blanks left out; 0 when it starts with none.
double numberFromText(std::string_view text);

} // namespace tollvane
