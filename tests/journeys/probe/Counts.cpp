#include "tests/journeys/probe/Counts.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <tlhelp32.h>
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

/// The processes of the desktop as they are now.
class Snapshot {
public:
    Snapshot() : handle_(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0)) {}
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;
    ~Snapshot() {
        if (handle_ != INVALID_HANDLE_VALUE) {
            CloseHandle(handle_);
        }
    }

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
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

// The system's list of the open handles of all processes, as a 64-bit system lays it out.
constexpr auto allHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);

struct HandleEntry {
    std::uint32_t process;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint16_t handle;
    const void* object;
    std::uint32_t access;
};

struct HandleList {
    std::uint32_t count;
    HandleEntry entries[1];
};

// What GetProcessHandleCount and the list of processes tell is the size of the table under Wine;
// the handles that are open are counted one by one.
long long handlesOf(DWORD processId) {
    std::vector<std::uint64_t> list(1u << 18);
    if (NtQuerySystemInformation(allHandles, list.data(),
                                 static_cast<ULONG>(list.size() * sizeof(std::uint64_t)),
                                 nullptr) != 0) {
        return -1;
    }
    const auto& all = *reinterpret_cast<const HandleList*>(list.data());
    const HandleEntry* const first = all.entries;
    return std::count_if(first, first + all.count,
                         [processId](const HandleEntry& one) { return one.process == processId; });
}

// The first process of that program; 0 when there is none.
DWORD processOf(std::wstring_view program) {
    const Snapshot all;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all.get(), &entry); more != FALSE;
         more = Process32NextW(all.get(), &entry)) {
        if (program == entry.szExeFile) {
            return entry.th32ProcessID;
        }
    }
    return 0;
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

void writeHandles(JsonWriter& json, std::wstring_view program) {
    const DWORD process = processOf(program);
    json.value(process != 0 ? handlesOf(process) : -1);
}

} // namespace tollvane::probe
