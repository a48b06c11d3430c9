#pragma once

#include <cstddef>
#include <set>

namespace tollvane::simulation {

/// What can go wrong around one transaction.
enum class Fault {
    // The disk of the charge component.
    diskFull,
    failedFlush,
    shortWrite,
    failedTruncate,
    unreadableFile,
    folderInUse,
    powerCutBeforeWrite,
    powerCutMidWrite,
    powerCutAfterWrite,
    // The line to the processor.
    requestLost,
    replyLost,
    replyLostAndLineDead,
    lateApproval,
    processorDown,
    requestSentTwice,
    programKilledWhileBusy,
    // The components.
    wrongTypedResult,
    wrongTypedField,
    errorAfterApproval,
    errorBeforeOperation,
    componentDiedAfterAnswer,
    hostDataGone,
    recordRefused,
    storeFull,
    updateNeverArrived,
    updateAnswerLost,
    programKilledAfterAnswer,
    // The machine.
    registryRefusal,
    localeFailure,
    boxNotShown,
    printerMissing,
    printerRefuses,
    printerFailsAtEnd,
    clockForward,
    clockBack,
    // The operator, and others.
    doubleClick,
    heldKeys,
    accessKeyRepeated,
    swipeWhileBusy,
    swipeOverBox,
    cancelWhileBusy,
    closeBoxWhileBusy,
    otherTypeWhileBusy,
    secondInstance,
    otherTillWhileBusy,
    cancelAndStartAgain,
    hastySecondTry,
    count
};

constexpr std::size_t kFaultKinds = static_cast<std::size_t>(Fault::count);

const char* nameOf(Fault fault);

using Faults = std::set<Fault>;

} // namespace tollvane::simulation
