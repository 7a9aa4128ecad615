#include "support/import_hook.h"

#include <windows.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace support {

namespace {

template <typename T>
T* at(char* base, DWORD offset) {
    return reinterpret_cast<T*>(base + offset);
}

// Every place of the import tables that holds the address of the function.
std::vector<void**> importsOf(const char* function) {
    std::vector<void**> places;
    char* base = reinterpret_cast<char*>(GetModuleHandleW(nullptr));
    const auto* headers =
        at<IMAGE_NT_HEADERS>(base, static_cast<DWORD>(at<IMAGE_DOS_HEADER>(base, 0)->e_lfanew));
    const DWORD table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* library = at<IMAGE_IMPORT_DESCRIPTOR>(base, table); library->Name != 0; ++library) {
        const auto* name = at<IMAGE_THUNK_DATA>(base, library->OriginalFirstThunk);
        auto* address = at<IMAGE_THUNK_DATA>(base, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* import = at<IMAGE_IMPORT_BY_NAME>(base, static_cast<DWORD>(name->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(&import->Name[0]), function) == 0) {
                places.push_back(reinterpret_cast<void**>(&address->u1.Function));
            }
        }
    }
    return places;
}

void write(void** place, void* value) {
    DWORD former = 0;
    VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &former);
    *place = value;
    VirtualProtect(place, sizeof(*place), former, &former);
}

}  // namespace

ImportHook::ImportHook(const char* function, void* replacement, int) : places_(importsOf(function)) {
    if (places_.empty()) {
        throw std::runtime_error(std::string("not imported: ") + function);
    }
    original_ = *places_.front();
    for (void** place : places_) {
        write(place, replacement);
    }
}

ImportHook::~ImportHook() {
    for (void** place : places_) {
        write(place, original_);
    }
}

}  // namespace support
