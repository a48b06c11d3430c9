// Answers questions about the desktop, one JSON line for each line of standard input:
//   windows | controls HWND
// With arguments it answers that one question and ends.
#include "tests/journeys/probe/Json.h"
#include "tests/journeys/probe/WindowTree.h"

#include <iostream>
#include <sstream>
#include <string>

namespace {

using tollvane::probe::JsonWriter;

std::string answer(const std::string& question) {
    std::istringstream words(question);
    std::string verb;
    long long number = 0;
    words >> verb >> number;
    const HWND window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(number));
    JsonWriter json;
    if (verb == "windows") {
        tollvane::probe::writeWindows(json);
    } else if (verb == "controls") {
        tollvane::probe::writeControls(json, window);
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
