#include "output/HelpFiles.h"

#include "app/CommonRoutines.h"
#include "platform/Letters.h"

#include <string_view>

namespace tollvane {

namespace {

constexpr std::int32_t kShown = kLargestLaunchError + 1;

/// The page that stands in for a help file.
std::string pageOf(const std::string& helpFile) {
    return helpFile.substr(0, helpFile.rfind('.')) + ".htm";
}

/// The part of a page's address that stands for one character of a path.
std::string addressed(std::string_view character) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                        "0123456789-._~/:";
    const char first = character.front();
    if (first == '\\') {
        return "/";
    }
    const auto byte = static_cast<unsigned char>(first);
    if (byte >= 0x80 || kPlain.find(first) != std::string_view::npos) {
        return std::string(character);
    }
    return {'%', kDigits[byte >> 4], kDigits[byte & 0xF]};
}

/// A file's path as browsers want it.
std::string addressOf(const std::string& path) {
    std::string address = path.starts_with("\\\\") ? "file:" : "file:///";
    for (std::string_view rest = path; !rest.empty();) {
        const std::size_t length = characterLength(rest);
        address += addressed(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return address;
}

} // namespace

std::int32_t openHelpContents(const Desktop& desktop, WindowNumber owner,
                              const std::string& helpFile) {
    const std::string folder = AppFolder(desktop.files);
    if (desktop.shell.helpContents(owner, folder + helpFile)) {
        return kShown;
    }
    return desktop.shell.execute(owner, "Open", folder + pageOf(helpFile), {}, folder, kShowNormal);
}

std::int32_t openHelpTopic(const Desktop& desktop, WindowNumber owner, const std::string& helpFile,
                           long topic) {
    const std::string folder = AppFolder(desktop.files);
    if (desktop.shell.helpTopic(owner, folder + helpFile, topic)) {
        return kShown;
    }
    const std::string page = folder + pageOf(helpFile);
    // The shell drops an anchor from a file that it is to open; the browser itself keeps it.
    std::string browser;
    if (desktop.shell.findProgram(page, folder, browser) > kLargestLaunchError) {
        const std::string place = addressOf(page) + "#" + std::to_string(topic);
        return desktop.shell.execute(owner, "Open", browser, '"' + place + '"', folder,
                                     kShowNormal);
    }
    return desktop.shell.execute(owner, "Open", page, {}, folder, kShowNormal);
}

} // namespace tollvane
