#pragma once

#include <string>
#include <string_view>

namespace tollvane::probe {

/// Writes one JSON value into a text; commas are placed by the writer.
class JsonWriter {
public:
    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);
    void value(std::wstring_view text);
    void value(long long number);
    void value(bool flag);

    /// A member of the open object.
    template <typename T>
    void member(std::string_view name, T what) {
        key(name);
        value(what);
    }

    const std::string& text() const { return text_; }

private:
    void separate();

    std::string text_;
};

/// UTF-8 of a wide text, for standard output.
std::string toUtf8(std::wstring_view wide);

} // namespace tollvane::probe
