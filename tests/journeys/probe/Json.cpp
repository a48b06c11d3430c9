#include "tests/journeys/probe/Json.h"

#include <cstdio>

#include <windows.h>

namespace tollvane::probe {

void JsonWriter::separate() {
    if (!text_.empty() && text_.back() != '{' && text_.back() != '[' && text_.back() != ':') {
        text_ += ',';
    }
}

void JsonWriter::beginObject() {
    separate();
    text_ += '{';
}

void JsonWriter::endObject() {
    text_ += '}';
}

void JsonWriter::beginArray() {
    separate();
    text_ += '[';
}

void JsonWriter::endArray() {
    text_ += ']';
}

void JsonWriter::key(std::string_view name) {
    separate();
    text_ += '"';
    text_ += name;
    text_ += "\":";
}

void JsonWriter::value(std::wstring_view text) {
    separate();
    text_ += '"';
    for (const char character : toUtf8(text)) {
        if (character == '"' || character == '\\') {
            text_ += '\\';
            text_ += character;
        } else if (static_cast<unsigned char>(character) < 0x20) {
            char escaped[8];
            (void)std::snprintf(escaped, sizeof escaped, "\\u%04x",
                                static_cast<unsigned>(static_cast<unsigned char>(character)));
            text_ += escaped;
        } else {
            text_ += character;
        }
    }
    text_ += '"';
}

void JsonWriter::value(long long number) {
    separate();
    text_ += std::to_string(number);
}

void JsonWriter::value(bool flag) {
    separate();
    text_ += flag ? "true" : "false";
}

std::string toUtf8(std::wstring_view wide) {
    if (wide.empty()) {
        return {};
    }
    const int length = static_cast<int>(wide.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

} // namespace tollvane::probe
