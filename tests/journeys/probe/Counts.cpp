#include "tests/journeys/probe/Counts.h"

#include <cstdint>
#include <vector>

#include <winternl.h>

namespace tollvane::probe {

namespace {

// Where a 64-bit process keeps the address of its table of GDI objects, and what the table is.
constexpr std::size_t tableInPeb = 0xF8;
constexpr std::size_t tableLength = 0x4000;

struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t userPointer;
};

/// The process while it is looked at.
class Process {
public:
    explicit Process(DWORD id)
        : handle_(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id)) {}
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process() {
        if (handle_ != nullptr) {
            CloseHandle(handle_);
        }
    }

    long long gdiObjects() const {
        PROCESS_BASIC_INFORMATION facts{};
        if (NtQueryInformationProcess(handle_, ProcessBasicInformation, &facts, sizeof facts,
                                      nullptr) != 0) {
            return -1;
        }
        const auto* const peb = reinterpret_cast<const char*>(facts.PebBaseAddress);
        const void* table = nullptr;
        std::vector<GdiEntry> entries(tableLength);
        if (!read(peb + tableInPeb, &table, sizeof table) ||
            !read(table, entries.data(), entries.size() * sizeof(GdiEntry))) {
            return -1;
        }
        long long count = 0;
        for (const GdiEntry& entry : entries) {
            count += entry.type != 0 ? 1 : 0;
        }
        return count;
    }

private:
    bool read(const void* from, void* to, std::size_t size) const {
        return ReadProcessMemory(handle_, from, to, size, nullptr) != FALSE;
    }

    HANDLE handle_;
};

// GetProcessHandleCount does not tell it everywhere; the list of all processes does.
long long handlesOf(DWORD processId) {
    std::vector<char> list(1u << 20);
    if (NtQuerySystemInformation(SystemProcessInformation, list.data(),
                                 static_cast<ULONG>(list.size()), nullptr) != 0) {
        return -1;
    }
    for (std::size_t place = 0;;) {
        const auto& one = *reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(&list[place]);
        if (reinterpret_cast<ULONG_PTR>(one.UniqueProcessId) == processId) {
            return one.HandleCount;
        }
        if (one.NextEntryOffset == 0) {
            return -1;
        }
        place += one.NextEntryOffset;
    }
}

struct WindowCount {
    DWORD processId;
    long long count;
};

BOOL CALLBACK countWindow(HWND window, LPARAM parameter) {
    auto& found = *reinterpret_cast<WindowCount*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId == found.processId) {
        ++found.count;
        if (GetAncestor(window, GA_PARENT) == GetDesktopWindow()) {
            EnumChildWindows(window, countWindow, parameter);
        }
    }
    return TRUE;
}

} // namespace

void writeCounts(JsonWriter& json, DWORD processId) {
    const Process process(processId);
    WindowCount windows{processId, 0};
    EnumWindows(countWindow, reinterpret_cast<LPARAM>(&windows));
    json.beginObject();
    json.member("handles", handlesOf(processId));
    json.member("gdi", process.gdiObjects());
    json.member("windows", windows.count);
    json.endObject();
}

} // namespace tollvane::probe
