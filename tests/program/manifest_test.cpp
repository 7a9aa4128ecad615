// The entries of the program's manifest, as the system understands them. Wine acts on few of them, so a wrong
// one would not be seen in the program's behaviour.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "app/resource_ids.h"
#include "app/version.h"
#include "program/support/environment.h"
#include "program/support/files.h"
#include "program/support/temporary_folder.h"

namespace program {
namespace {

constexpr wchar_t kSettings2005[] = L"http://schemas.microsoft.com/SMI/2005/WindowsSettings";
constexpr wchar_t kSettings2016[] = L"http://schemas.microsoft.com/SMI/2016/WindowsSettings";

/// What the system reads from the manifest of a program file.
class Manifest {
  public:
    explicit Manifest(const std::wstring& exe) {
        ACTCTXW source = {};
        source.cbSize = sizeof source;
        source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        source.lpSource = exe.c_str();
        source.lpResourceName = MAKEINTRESOURCEW(1);
        context_ = CreateActCtxW(&source);
    }
    ~Manifest() {
        if (valid()) {
            ReleaseActCtx(context_);
        }
    }
    Manifest(const Manifest&) = delete;
    Manifest& operator=(const Manifest&) = delete;

    bool valid() const { return context_ != INVALID_HANDLE_VALUE; }

    /// Empty when the manifest has no such entry.
    std::wstring setting(const wchar_t* space, const wchar_t* name) const {
        wchar_t value[100] = {};
        SIZE_T length = 0;
        return valid() && QueryActCtxSettingsW(0, context_, space, name, value, std::size(value), &length)
                   ? value
                   : L"";
    }

    bool supportsWindows10() const {
        constexpr GUID kWindows10 = {
            0x8e0f7a12, 0xbfb3, 0x4fe8, {0xb9, 0xa5, 0x48, 0xfd, 0x50, 0xa1, 0x5a, 0x9a}};
        const auto bytes = query(CompatibilityInformationInActivationContext, 0);
        // The entries' layout differs between versions of the system, what they are named by does not.
        const auto* wanted = reinterpret_cast<const unsigned char*>(&kWindows10);
        return std::search(bytes.begin(), bytes.end(), wanted, wanted + sizeof kWindows10) != bytes.end();
    }

    bool usesCommonControls6() const {
        for (DWORD index = 1;; ++index) {
            const auto bytes = query(AssemblyDetailedInformationInActivationContext, index);
            if (bytes.empty()) {
                return false;
            }
            const auto* assembly =
                reinterpret_cast<const ACTIVATION_CONTEXT_ASSEMBLY_DETAILED_INFORMATION*>(bytes.data());
            const std::wstring identity = assembly->lpAssemblyEncodedAssemblyIdentity;
            if (identity.starts_with(L"Microsoft.Windows.Common-Controls") &&
                identity.find(L"version=\"6.") != std::wstring::npos) {
                return true;
            }
        }
    }

  private:
    std::vector<unsigned char> query(ULONG kind, DWORD index) const {
        std::vector<unsigned char> bytes(4096);
        SIZE_T length = 0;
        if (!valid() || !QueryActCtxW(0, context_, &index, kind, bytes.data(), bytes.size(), &length)) {
            return {};
        }
        bytes.resize(length);
        return bytes;
    }

    HANDLE context_ = INVALID_HANDLE_VALUE;
};

/// What is wrong with the manifest of a program file; empty when nothing is.
std::string problemsOf(const std::wstring& exe) {
    const Manifest manifest(exe);
    if (!manifest.valid()) {
        return "unreadable";
    }
    std::string problems;
    if (manifest.setting(kSettings2016, L"dpiAwareness") != L"PerMonitorV2, PerMonitor") {
        problems += "dpiAwareness ";
    }
    if (manifest.setting(kSettings2005, L"dpiAware") != L"true/pm") {
        problems += "dpiAware ";
    }
    if (manifest.setting(kSettings2016, L"longPathAware") != L"true") {
        problems += "longPathAware ";
    }
    // The settings file and the show script are in the system's code page.
    if (!manifest.setting(L"http://schemas.microsoft.com/SMI/2019/WindowsSettings", L"activeCodePage")
             .empty()) {
        problems += "activeCodePage ";
    }
    if (!manifest.supportsWindows10()) {
        problems += "supportedOS ";
    }
    if (!manifest.usesCommonControls6()) {
        problems += "common-controls ";
    }
    return problems;
}

TEST(ProgramFile, HasAManifestThatTheSystemUnderstands) {
    ASSERT_NE(panorellExe(), L"");
    EXPECT_EQ(problemsOf(panorellExe()), "");
}

struct Damage {
    const char* name;
    std::string from;
    std::string to;  ///< as long as `from`
    const char* noticed;

    friend void PrintTo(const Damage& damage, std::ostream* out) { *out << damage.name; }
};

class DamagedEntry : public testing::TestWithParam<Damage> {};

TEST_P(DamagedEntry, IsNoticed) {
    const Damage& damage = GetParam();
    ASSERT_EQ(damage.from.size(), damage.to.size());
    std::string bytes = readBytes(panorellExe());
    const std::size_t at = bytes.find(damage.from);
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, damage.to.size(), damage.to);
    const TemporaryFolder folder;
    const std::wstring copy = folder.file(L"damaged.exe");
    writeBytes(copy, bytes);
    EXPECT_EQ(problemsOf(copy), damage.noticed);
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, DamagedEntry,
    testing::Values(Damage{"not_xml", "<assembly xmlns", "<assembly xmlnz", "unreadable"},
                    Damage{"never_closed", "</assembly>", "           ", "unreadable"},
                    Damage{"awareness", "PerMonitorV2", "PerMonitorX2", "dpiAwareness "},
                    Damage{"older_awareness", "true/pm", "talse/p", "dpiAware "},
                    Damage{"long_paths", "<longPathAware", "<longPathAxxxx", "unreadable"},
                    Damage{"systems", "8e0f7a12", "8e0f7a13", "supportedOS "},
                    Damage{"controls", "version=\"6.0.0.0\"", "version=\"5.0.0.0\"", "unreadable"}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(DamagedManifest, WithoutCommonControlsIsNoticed) {
    std::string bytes = readBytes(panorellExe());
    const std::string end = "</dependency>";
    const std::size_t from = bytes.find("<dependency>");
    const std::size_t to = bytes.find(end, from);
    ASSERT_NE(to, std::string::npos);
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(from), to + end.size() - from, ' ');
    const TemporaryFolder folder;
    writeBytes(folder.file(L"damaged.exe"), bytes);
    EXPECT_EQ(problemsOf(folder.file(L"damaged.exe")), "common-controls ");
}

TEST(ProgramFile, CarriesIconAndPointerInEverySize) {
    ASSERT_NE(panorellExe(), L"");
    const HMODULE file = LoadLibraryExW(panorellExe().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(file, nullptr);
    const auto entries = [file](int id, LPCWSTR kind) {
        const HRSRC found = FindResourceW(file, MAKEINTRESOURCEW(id), kind);
        const auto* words =
            found ? static_cast<const WORD*>(LockResource(LoadResource(file, found))) : nullptr;
        return words ? words[2] : 0;
    };
    EXPECT_EQ(entries(PANORELL_ICON, RT_GROUP_ICON), 7);
    EXPECT_EQ(entries(PANORELL_POINTER, RT_GROUP_CURSOR), 3);
    FreeLibrary(file);
}

TEST(ProgramFile, CarriesItsVersion) {
    ASSERT_NE(panorellExe(), L"");
    DWORD ignored = 0;
    std::vector<unsigned char> bytes(GetFileVersionInfoSizeW(panorellExe().c_str(), &ignored));
    ASSERT_FALSE(bytes.empty());
    ASSERT_TRUE(
        GetFileVersionInfoW(panorellExe().c_str(), 0, static_cast<DWORD>(bytes.size()), bytes.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(bytes.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    EXPECT_EQ(fixed->dwFileVersionMS, MAKELONG(PANORELL_VERSION_MINOR, PANORELL_VERSION_MAJOR));
    wchar_t* text = nullptr;
    ASSERT_TRUE(VerQueryValueW(bytes.data(), L"\\StringFileInfo\\040704B0\\FileDescription",
                               reinterpret_cast<void**>(&text), &length));
    EXPECT_STREQ(text, L"Panorell \u2013 Diashow f\u00fcr Bilder und Videos");
}

}  // namespace
}  // namespace program
