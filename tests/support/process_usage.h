#pragma once

#include <windows.h>
#include <winternl.h>

#include <psapi.h>

#include <cstddef>
#include <ostream>
#include <vector>

namespace support {

/// What the system counts of this process.
struct ProcessUsage {
    std::size_t memory = 0;  ///< committed bytes
    unsigned handles = 0;    ///< kernel handles

    /// The counts of now; 0 where the system tells none.
    static ProcessUsage now() {
        ProcessUsage usage;
        PROCESS_MEMORY_COUNTERS counters{};
        counters.cb = sizeof(counters);
        if (K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)) != FALSE) {
            usage.memory = counters.PagefileUsage;
        }
        usage.handles = kernelHandles();
        return usage;
    }

  private:
    // Wine has no GetProcessHandleCount, but lists the count of every process.
    static unsigned kernelHandles() {
        using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
        const auto query = reinterpret_cast<Query>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll"), "NtQuerySystemInformation")));
        std::vector<std::byte> list(1U << 20);
        if (query == nullptr ||
            query(SystemProcessInformation, list.data(), static_cast<ULONG>(list.size()), nullptr) != 0) {
            return 0;
        }
        const auto self = reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(GetCurrentProcessId()));
        std::size_t at = 0;
        for (;;) {
            const auto* process = reinterpret_cast<const SYSTEM_PROCESS_INFORMATION*>(list.data() + at);
            if (process->UniqueProcessId == self) {
                return process->HandleCount;
            }
            if (process->NextEntryOffset == 0) {
                return 0;
            }
            at += process->NextEntryOffset;
        }
    }
};

inline std::ostream& operator<<(std::ostream& out, const ProcessUsage& usage) {
    return out << usage.memory / 1024 << " KB, " << usage.handles << " handles";
}

}  // namespace support
