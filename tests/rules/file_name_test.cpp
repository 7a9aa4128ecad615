#include "files/file_name.h"

#include <gtest/gtest.h>

#include <string>

namespace files {
namespace {

TEST(FileName, Faults) {
    const std::pair<std::wstring, NameFault> cases[] = {
        {L"Meer.jpg", NameFault::None},
        {L" a.jpg", NameFault::None},
        {L".jpg", NameFault::None},
        {L"CON001.jpg", NameFault::None},
        {L"01 CON.mp3", NameFault::None},
        {L"COM0.jpg", NameFault::None},
        {L"COM10.jpg", NameFault::None},
        {L"\u00DCber \u6D77 %&'().jpg", NameFault::None},
        {std::wstring(255, L'x'), NameFault::None},
        {std::wstring(256, L'x'), NameFault::TooLong},
        {L"", NameFault::Empty},
        {L"a:b.jpg", NameFault::Character},
        {L"a\\b", NameFault::Character},
        {L"a/b", NameFault::Character},
        {L"a*", NameFault::Character},
        {L"a?", NameFault::Character},
        {L"a\"", NameFault::Character},
        {L"<a", NameFault::Character},
        {L">a", NameFault::Character},
        {L"a|b", NameFault::Character},
        {L"a\tb", NameFault::Character},
        {std::wstring(L"a\0b", 3), NameFault::Character},
        {L"CON", NameFault::Reserved},
        {L"con.jpg", NameFault::Reserved},
        {L"Nul.a.b", NameFault::Reserved},
        {L"NUL .txt", NameFault::Reserved},
        {L"aux.mpg", NameFault::Reserved},
        {L"PRN.", NameFault::TrailingBlankOrDot},
        {L"COM1.jpg", NameFault::Reserved},
        {L"lpt9", NameFault::Reserved},
        {L"COM\u00B2.jpg", NameFault::Reserved},
        {L"CONIN$", NameFault::Reserved},
        {L"a.jpg ", NameFault::TrailingBlankOrDot},
        {L"a.", NameFault::TrailingBlankOrDot},
        {L"..", NameFault::TrailingBlankOrDot},
    };
    for (const auto& [name, fault] : cases) {
        EXPECT_EQ(nameFault(name), fault) << testing::PrintToString(name);
    }
}

TEST(FileName, PlainNamesLeadNowhereElse) {
    for (const wchar_t* name : {L"a.jpg", L"a.", L"con", L"...", L" "}) {
        EXPECT_TRUE(isPlainName(name)) << testing::PrintToString(name);
    }
    for (const wchar_t* name : {L"", L".", L"..", L"..\\a", L"a/b", L"C:a", L"a\nb"}) {
        EXPECT_FALSE(isPlainName(name)) << testing::PrintToString(name);
    }
}

}  // namespace
}  // namespace files
