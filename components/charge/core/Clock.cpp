#include "components/charge/core/Clock.h"

#include <cstdio>

namespace tollvane::charge {

namespace {

std::string threeNumbers(const char* format, int first, int second, int third) {
    char buffer[40] = {};
    std::snprintf(buffer, sizeof buffer, format, first, second, third);
    return buffer;
}

} // namespace

std::string Moment::dayText() const {
    return threeNumbers("%04d%02d%02d", year, month, day);
}
std::string Moment::dateText() const {
    return threeNumbers("%04d-%02d-%02d", year, month, day);
}
std::string Moment::timeText() const {
    return threeNumbers("%02d:%02d:%02d", hour, minute, second);
}

} // namespace tollvane::charge
