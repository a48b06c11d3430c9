// Answers questions about the desktop, one JSON line for each line of standard input:
//   windows | controls HWND | control HWND NAME | focused HWND
//   texts HWND... | unread NAME... | lock KEY | counts PROCESS |
//   crash PROCESS | type UNIT...
// The units of "type" are those of UTF-16, as numbers.
// "unread" names the controls of which nobody wants to read the text from now on.
// With arguments it answers that one question and ends.
#include "tests/journeys/probe/Access.h"
#include "tests/journeys/probe/Counts.h"
#include "tests/journeys/probe/Crash.h"
#include "tests/journeys/probe/Json.h"
#include "tests/journeys/probe/Typing.h"
#include "tests/journeys/probe/WindowTree.h"

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace tollvane::probe;

std::vector<HWND> handlesIn(std::istringstream& words) {
    std::vector<HWND> handles;
    for (long long number = 0; words >> number;) {
        handles.push_back(reinterpret_cast<HWND>(static_cast<LONG_PTR>(number)));
    }
    return handles;
}

HWND handleIn(std::istringstream& words) {
    long long number = 0;
    words >> number;
    return reinterpret_cast<HWND>(static_cast<LONG_PTR>(number));
}

std::string restOf(std::istringstream& words) {
    std::string rest;
    std::getline(words >> std::ws, rest);
    return rest;
}

/// Names of controls are plain ASCII.
std::wstring widened(const std::string& name) {
    return {name.begin(), name.end()};
}

/// One talk: what was told once is remembered to its end.
class Talk {
public:
    std::string answer(const std::string& question) {
        std::istringstream words(question);
        std::string verb;
        words >> verb;
        JsonWriter json;
        if (verb == "windows") {
            writeWindows(json);
        } else if (verb == "controls") {
            writeControls(json, handleIn(words), look_);
        } else if (verb == "control") {
            const HWND window = handleIn(words);
            writeControlsNamed(json, window, widened(restOf(words)), look_);
        } else if (verb == "focused") {
            writeFocused(json, handleIn(words), names_);
        } else if (verb == "texts") {
            writeTexts(json, handlesIn(words));
        } else if (verb == "unread") {
            look_.unread.clear();
            for (std::string name; words >> name;) {
                look_.unread.insert(widened(name));
            }
            json.value(true);
        } else if (verb == "lock") {
            json.beginObject();
            json.member("error", static_cast<long long>(lockKey(restOf(words))));
            json.endObject();
        } else if (verb == "counts") {
            DWORD process = 0;
            words >> process;
            writeCounts(json, process);
        } else if (verb == "handles") {
            writeHandles(json, widened(restOf(words)));
        } else if (verb == "type") {
            std::wstring text;
            for (unsigned unit = 0; words >> unit;) {
                text += static_cast<wchar_t>(unit);
            }
            json.value(typeText(text));
        } else if (verb == "crash") {
            DWORD process = 0;
            words >> process;
            json.beginObject();
            json.member("error", static_cast<long long>(crash(process)));
            json.endObject();
        } else {
            json.beginObject();
            json.member("error", std::wstring_view(L"unknown question"));
            json.endObject();
        }
        return json.text();
    }

private:
    Names names_;
    Look look_{names_, {}};
};

} // namespace

int main(int count, char** arguments) {
    SetProcessDPIAware();
    Talk talk;
    if (count > 1) {
        std::string question;
        for (int i = 1; i < count; ++i) {
            question += arguments[i];
            question += ' ';
        }
        std::cout << talk.answer(question) << '\n';
        return 0;
    }
    std::string question;
    while (std::getline(std::cin, question)) {
        std::cout << talk.answer(question) << std::endl;
    }
    return 0;
}
