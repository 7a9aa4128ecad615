#include "overview_run.h"

#include <windows.h>

#include <winternl.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <thread>
#include <vector>

#include "bench_main.h"
#include "overview/box_picture.h"
#include "platform/handles.h"
#include "run_program.h"
#include "ui/control_ids.h"

namespace bench {

namespace {

constexpr auto kPatience = std::chrono::minutes(10);
constexpr auto kPoll = std::chrono::milliseconds(2);
constexpr double kMegabyte = 1e6;

struct ControlSearch {
    int id = 0;
    int windows = 0;
    HWND found = nullptr;
};

BOOL CALLBACK countControl(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<ControlSearch*>(parameter);
    ++search.windows;
    if (search.found == nullptr && GetDlgCtrlID(window) == search.id) {
        search.found = window;
    }
    return TRUE;
}

ControlSearch searchIn(HWND form, int id) {
    ControlSearch search{id};
    EnumChildWindows(form, countControl, reinterpret_cast<LPARAM>(&search));
    return search;
}

void waitUntil(const support::ChildProcess& program, const char* what, const std::function<bool()>& reached) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!reached()) {
        if (!program.running() || std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error(what);
        }
        std::this_thread::sleep_for(kPoll);
    }
}

/// The entries in use of the table of GDI objects that the system keeps in each process.
int usedTableEntries(HANDLE process) {
    constexpr std::size_t kTableInEnvironment = 0xF8;
    struct TableEntry {
        std::uint64_t object;
        std::uint32_t owner;
        std::uint16_t unique;
        std::uint8_t type;
        std::uint8_t flags;
        std::uint64_t user;
    };
    PROCESS_BASIC_INFORMATION basic{};
    std::uintptr_t table = 0;
    std::vector<TableEntry> entries(0x4000);
    const auto* environment = [&] {
        NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof(basic), nullptr);
        return reinterpret_cast<const std::byte*>(basic.PebBaseAddress);
    }();
    if (environment == nullptr ||
        ReadProcessMemory(process, environment + kTableInEnvironment, &table, sizeof(table), nullptr) ==
            FALSE ||
        ReadProcessMemory(process, reinterpret_cast<const void*>(table), entries.data(),
                          entries.size() * sizeof(TableEntry), nullptr) == FALSE) {
        throw std::runtime_error("the GDI objects cannot be counted");
    }
    int used = 0;
    for (const TableEntry& entry : entries) {
        used += entry.type != 0 ? 1 : 0;
    }
    return used;
}

/// Wine's count is always 0.
int gdiObjectsOf(const support::ChildProcess& program) {
    const platform::Object process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, program.id()));
    const DWORD told = GetGuiResources(process.get(), GR_GDIOBJECTS);
    return told != 0 ? static_cast<int>(told) : usedTableEntries(process.get());
}

/// Beside all items, where nothing but the window's ground is.
POINT groundPlace(HWND form) {
    RECT client{};
    GetClientRect(form, &client);
    POINT place{2, client.bottom - 3};
    ClientToScreen(form, &place);
    return place;
}

bool isPainted(HWND form) {
    return form != nullptr && screenColour(groundPlace(form)) == overview::kGroundColour;
}

}  // namespace

OverviewRun openOverview(const std::wstring& folder) {
    const support::ChildProcess program(panorellExe(), folder);
    HWND button = nullptr;
    waitUntil(program, "the set-up does not come", [&] {
        const HWND form = program.window(L"Form1");
        button = form != nullptr ? searchIn(form, ui::id::kCTRL).found : nullptr;
        return button != nullptr && IsWindowEnabled(button) != FALSE;
    });
    OverviewRun run;
    const auto since = std::chrono::steady_clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - since).count();
    };
    PostMessageW(button, BM_CLICK, 0, 0);
    HWND form = nullptr;
    waitUntil(program, "the overview is not painted",
              [&] { return isPainted(form = program.window(L"Form2")); });
    run.paintedMs = elapsed();
    // The bar comes when all places are made, and goes with the last thumbnail.
    const HWND bar = searchIn(form, ui::id::kProgress).found;
    waitUntil(program, "no thumbnail comes", [&] { return IsWindowVisible(bar) != FALSE; });
    waitUntil(program, "thumbnails are missing", [&] { return IsWindowVisible(bar) == FALSE; });
    run.filledMs = elapsed();
    const ControlSearch boxes = searchIn(form, ui::id::kThumbnail);
    RECT box{};
    GetClientRect(boxes.found, &box);
    run.boxWidth = static_cast<int>(box.right);
    run.boxHeight = static_cast<int>(box.bottom);
    run.windows = boxes.windows;
    run.gdiObjects = gdiObjectsOf(program);
    run.peakMegabytes = static_cast<double>(program.memory().peak) / kMegabyte;
    return run;
}

}  // namespace bench
