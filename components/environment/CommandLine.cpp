#include "components/environment/CommandLine.h"

namespace tollvane::environment {

namespace {

bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

std::string plain(const std::wstring& text) {
    std::string result;
    for (const wchar_t c : text.substr(0, 60))
        result += c >= L' ' && c <= L'~' ? static_cast<char>(c) : '?';
    return result;
}

// The next word, without its quotes; blanks within quotes belong to it.
std::wstring takeWord(const std::wstring& text, std::size_t& place) {
    std::wstring word;
    bool quoted = false;
    for (; place < text.size() && (quoted || !isBlank(text[place])); ++place) {
        if (text[place] == L'"')
            quoted = !quoted;
        else
            word += text[place];
    }
    if (quoted)
        throw CommandLineError("A quotation mark is missing on the command line after \"" +
                               plain(word) + "\".");
    return word;
}

std::wstring lowered(std::wstring text) {
    for (wchar_t& c : text)
        if (c >= L'A' && c <= L'Z')
            c = static_cast<wchar_t>(c - L'A' + L'a');
    return text;
}

std::optional<std::wstring>* find(CommandLine& line, const std::wstring& name) {
    if (name == L"server")
        return &line.server;
    if (name == L"data")
        return &line.data;
    if (name == L"location")
        return &line.location;
    return name == L"user" ? &line.user : nullptr;
}

void apply(CommandLine& line, const std::wstring& word) {
    const bool isSwitch = word.size() > 1 && (word[0] == L'/' || word[0] == L'-');
    const auto colon = word.find(L':');
    auto* value = isSwitch ? find(line, lowered(word.substr(1, colon - 1))) : nullptr;
    if (value == nullptr)
        throw CommandLineError("The command line contains \"" + plain(word) +
                               "\", which is not known. Known are /server:NAME, /data:PATH, "
                               "/location:NAME and /user:NAME.");
    if (colon == std::wstring::npos)
        throw CommandLineError("The switch \"" + plain(word) +
                               "\" on the command line needs a colon and a value.");
    *value = word.substr(colon + 1);
}

} // namespace

CommandLine parseCommandLine(const std::wstring& text) {
    CommandLine line;
    std::size_t place = 0;
    for (;;) {
        while (place < text.size() && isBlank(text[place]))
            ++place;
        if (place == text.size())
            return line;
        apply(line, takeWord(text, place));
    }
}

} // namespace tollvane::environment
