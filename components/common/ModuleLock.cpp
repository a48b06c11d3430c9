#include "components/common/ModuleLock.h"

#include <atomic>

namespace tollvane::com {

namespace {

std::atomic<LONG> locks{0};
std::atomic<void (*)()> idleCallback{nullptr};

} // namespace

HMODULE thisModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&thisModule), &module);
    return module;
}

void lockModule() noexcept {
    ++locks;
}

void unlockModule() noexcept {
    if (--locks == 0) {
        if (auto callback = idleCallback.load())
            callback();
    }
}

LONG moduleLocks() noexcept {
    return locks.load();
}

void onModuleIdle(void (*callback)()) noexcept {
    idleCallback = callback;
}

} // namespace tollvane::com
