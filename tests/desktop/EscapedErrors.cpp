#include "tests/desktop/TestForms.h"

namespace tollvane::test {

void EscapedErrors::note(const std::string& where, const Error& error) {
    noted_.push_back(where + ": " + std::to_string(error.number()) + ", " + error.description());
}

} // namespace tollvane::test
