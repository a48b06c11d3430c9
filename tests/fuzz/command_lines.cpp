// Command lines for the environment component.

#include "components/environment/CommandLine.h"
#include "tests/fuzz/Script.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using namespace tollvane::environment;
using tollvane::test::require;

std::wstring written(std::wstring_view name, const std::optional<std::wstring>& value) {
    if (!value) {
        return {};
    }
    std::wstring word(name);
    word += L":\"";
    return word + *value + L"\" ";
}

/// Values never hold a quotation mark: that is how they are read.
std::wstring written(const CommandLine& line) {
    return written(L"/Server", line.server) + written(L"-DATA", line.data) +
           written(L"-location", line.location) + written(L"/user", line.user);
}

bool same(const CommandLine& one, const CommandLine& other) {
    return one.server == other.server && one.data == other.data && one.location == other.location &&
           one.user == other.user;
}

/// Bytes as they are; behind each of these a letter of two bytes.
std::wstring wide(const std::uint8_t* data, std::size_t size) {
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i) {
        const bool isLong = data[i] >= 0xF0 && i + 1 < size;
        const unsigned high = isLong ? data[i] * 256U : 0U;
        i += isLong ? 1 : 0;
        text += static_cast<wchar_t>(high + data[i]);
    }
    return text;
}

void requireValuesOf(const std::wstring& text, const CommandLine& line) {
    std::wstring plain = text;
    std::erase(plain, L'"');
    for (const auto& value : {line.server, line.data, line.location, line.user}) {
        require(!value || plain.find(*value) != std::wstring::npos, "a value was typed");
        require(!value || value->find(L'"') == std::wstring::npos, "no value holds a quote");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = wide(data, size);
    try {
        const CommandLine line = parseCommandLine(text);
        requireValuesOf(text, line);
        require(same(parseCommandLine(written(line)), line), "what was understood is read again");
        require(same(parseCommandLine(L" \t" + text + L" "), line), "blanks around do not matter");
    } catch (const CommandLineError& error) {
        const std::string_view what = error.what();
        require(what.size() > 20 && what.size() < 400, "a sentence for whoever wrote it");
        require(std::ranges::all_of(what, [](char c) { return c >= ' ' && c <= '~'; }),
                "a sentence that every code page shows");
    }
    return 0;
}
