#include "app/CommonRoutines.h"

#include "platform/Letters.h"
#include "platform/LocaleStyle.h"
#include "platform/Text.h"

#include <charconv>

namespace tollvane {

namespace {

std::string quotedWhenItHasBlanks(const std::string& text) {
    return text.find(' ') == std::string::npos ? text : '"' + text + '"';
}

} // namespace

bool FileExists(Files& files, const std::string& path) {
    constexpr std::uint32_t kSharingViolation = 32;
    if (path.empty()) {
        return false;
    }
    try {
        const std::uint32_t error = files.probeForReading(path);
        return error == 0 || error == kSharingViolation;
    } catch (...) {
        return false;
    }
}

std::string ReadIniValue(Files& files, const std::string& section, const std::string& key,
                         const std::string& file, const std::optional<std::string>& fallback) {
    constexpr std::uint32_t kBufferSize = 2555;
    const std::string missing(kIniValueNotFound);
    const std::string value = files.profileString(section, key, missing, kBufferSize, file);
    return value == missing && fallback ? *fallback : value;
}

std::string AppFolder(Files& files) {
    std::string folder = files.programFolder();
    if (folder.empty() || folder.back() != '\\') {
        folder += '\\';
    }
    return folder;
}

std::string CapitalizePath(std::string_view text) {
    constexpr std::string_view kCapitalBehind = "/\\: ";
    std::string path = trimmed(text);
    bool capital = true;
    for (std::size_t at = 0; at < path.size();) {
        const std::size_t length = characterLength(std::string_view(path).substr(at));
        if (length == 1) {
            path[at] = capital ? capitalLetter(path[at]) : smallLetter(path[at]);
        }
        capital = length == 1 && kCapitalBehind.find(path[at]) != std::string_view::npos;
        at += length;
    }
    return path;
}

void SelectAllText(Mouse& mouse, TextBox& box, bool always) {
    constexpr int kToTheEnd = -1;
    try {
        if (always || !mouse.leftButtonDown()) {
            box.select(0, kToTheEnd);
        }
    } catch (...) {
        // A selection is a convenience; entering the box must not fail for want of it.
    }
}

std::uint32_t SetDigitsOnly(TextBox& box) {
    const std::uint32_t style = box.windowStyle();
    return style == 0 ? 0 : box.setWindowStyle(style | editstyle::digitsOnly);
}

std::uint32_t RunProgram(Files& files, const std::string& program, const std::string& arguments) {
    constexpr bool kInheritHandles = true;
    constexpr std::uint32_t kCreationFlags = 0x120;
    std::string commandLine = quotedWhenItHasBlanks(program);
    if (!arguments.empty()) {
        commandLine += ' ' + quotedWhenItHasBlanks(arguments);
    }
    return files.startProcess(commandLine, kInheritHandles, kCreationFlags);
}

std::string GetLocaleValue(Locale& locale, std::uint32_t item, std::uint32_t which) {
    switch (which) {
    case kSystemLocale: return localeText(locale, locale.systemDefault(), item);
    case kUserLocale: return localeText(locale, locale.userDefault(), item);
    default: return localeText(locale, which, item);
    }
}

double numberFromText(std::string_view text) {
    std::string figures;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') {
            figures += c;
        }
    }
    const bool signedNumber = !figures.empty() && (figures[0] == '-' || figures[0] == '+');
    const bool negative = signedNumber && figures[0] == '-';
    const std::size_t start = signedNumber ? 1 : 0;
    // Words such as "infinity" are no numbers here.
    if (figures.find_first_of("0123456789.", start) != start) {
        return 0;
    }
    double value = 0;
    std::from_chars(figures.data() + start, figures.data() + figures.size(), value);
    return negative ? -value : value;
}

} // namespace tollvane
