// Keystrokes, carets, selections, pastes, focus changes, pauses and swipes at the transaction form.

#include "tests/unit/FormMonkey.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

/// After how many keystrokes the work is done; 0 leaves that to the fuzzer's own options.
std::uint64_t wantedKeystrokes() {
    const char* wanted = std::getenv("TOLLVANE_KEYSTROKES");
    return wanted == nullptr ? 0 : std::strtoull(wanted, nullptr, 10);
}

/// Ends the process, since a fuzzer ends by a number of scripts only.
void endWhenDone(std::uint64_t keystrokes) {
    static const std::uint64_t wanted = wantedKeystrokes();
    if (wanted != 0 && keystrokes >= wanted) {
        std::fprintf(stderr, "%llu keystrokes, no promise broken\n",
                     static_cast<unsigned long long>(keystrokes));
        std::_Exit(EXIT_SUCCESS); // the fuzzer takes every other end for a crash
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tollvane::test::FormMonkey monkey;
    const std::string complaint = monkey.play({data, size});
    if (!complaint.empty()) {
        std::fprintf(stderr, "%s\n", complaint.c_str());
        std::abort();
    }
    endWhenDone(monkey.keystrokes());
    return 0;
}
