// Keystrokes, carets, selections, pastes, focus changes, pauses and swipes at the transaction form.

#include "tests/unit/FormMonkey.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tollvane::test::FormMonkey monkey;
    const std::string complaint = monkey.play({data, size});
    if (!complaint.empty()) {
        std::fprintf(stderr, "%s\n", complaint.c_str());
        std::abort();
    }
    return 0;
}
