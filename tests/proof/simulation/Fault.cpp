#include "tests/proof/simulation/Fault.h"

#include <array>

namespace tollvane::simulation {

namespace {

constexpr std::array kNames{
    "disk full",
    "failed flush",
    "short write",
    "failed truncate",
    "unreadable file",
    "folder in use",
    "power cut before write",
    "power cut mid write",
    "power cut after write",
    "request lost",
    "reply lost",
    "reply lost and line dead",
    "late approval",
    "processor down",
    "request sent twice",
    "program killed while busy",
    "wrong typed result",
    "wrong typed field",
    "error after approval",
    "error before operation",
    "component died after answer",
    "host data gone",
    "record refused",
    "store full",
    "update never arrived",
    "update answer lost",
    "program killed after answer",
    "registry refusal",
    "locale failure",
    "box not shown",
    "printer missing",
    "printer refuses",
    "printer fails at end",
    "clock forward",
    "clock back",
    "double click",
    "held keys",
    "access key repeated",
    "swipe while busy",
    "swipe over box",
    "cancel while busy",
    "close box while busy",
    "other type while busy",
    "second instance",
    "other till while busy",
    "cancel and start again",
    "hasty second try",
};
static_assert(kNames.size() == kFaultKinds);

} // namespace

const char* nameOf(Fault fault) {
    return kNames.at(static_cast<std::size_t>(fault));
}

} // namespace tollvane::simulation
