// Answers questions about the desktop, one JSON line for each line of standard input:
//   windows | controls HWND NAME... | texts HWND... | lock KEY | counts PROCESS
// The names are those of controls of which nobody wants to read the text.
// With arguments it answers that one question and ends.
#include "tests/journeys/probe/Access.h"
#include "tests/journeys/probe/Counts.h"
#include "tests/journeys/probe/Json.h"
#include "tests/journeys/probe/WindowTree.h"

#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using tollvane::probe::JsonWriter;

std::vector<HWND> handlesIn(std::istringstream& words) {
    std::vector<HWND> handles;
    for (long long number = 0; words >> number;) {
        handles.push_back(reinterpret_cast<HWND>(static_cast<LONG_PTR>(number)));
    }
    return handles;
}

std::set<std::wstring> namesIn(std::istringstream& words) {
    std::set<std::wstring> names;
    for (std::string name; words >> name;) {
        names.emplace(name.begin(), name.end());
    }
    return names;
}

std::string answer(const std::string& question) {
    std::istringstream words(question);
    std::string verb;
    words >> verb;
    JsonWriter json;
    if (verb == "lock") {
        std::string key;
        std::getline(words >> std::ws, key);
        json.beginObject();
        json.member("error", static_cast<long long>(tollvane::probe::lockKey(key)));
        json.endObject();
        return json.text();
    }
    if (verb == "counts") {
        DWORD processId = 0;
        words >> processId;
        tollvane::probe::writeCounts(json, processId);
        return json.text();
    }
    const std::vector<HWND> windows = handlesIn(words);
    words.clear();
    if (verb == "windows") {
        tollvane::probe::writeWindows(json);
    } else if (verb == "controls") {
        tollvane::probe::writeControls(json, windows.empty() ? nullptr : windows.front(), namesIn(words));
    } else if (verb == "texts") {
        tollvane::probe::writeTexts(json, windows);
    } else {
        json.beginObject();
        json.member("error", std::wstring_view(L"unknown question"));
        json.endObject();
    }
    return json.text();
}

} // namespace

int main(int count, char** arguments) {
    SetProcessDPIAware();
    if (count > 1) {
        std::string question;
        for (int i = 1; i < count; ++i) {
            question += arguments[i];
            question += ' ';
        }
        std::cout << answer(question) << '\n';
        return 0;
    }
    std::string question;
    while (std::getline(std::cin, question)) {
        std::cout << answer(question) << std::endl;
    }
    return 0;
}
