#include "edit/editor_command.h"

#include <gtest/gtest.h>

namespace edit {
namespace {

TEST(EditorCommand, NamesTheProgram) {
    const struct {
        const wchar_t* path;
        const wchar_t* expected;
    } cases[] = {
        {L"C:\\WINDOWS\\SYSTEM32\\MSPAINT.EXE", L"MSPAINT"},
        {L"C:\\Programme\\Mal Programm 2\\Pinsel.exe", L"Pinsel"},
        {L"C:\\v2.0\\pinsel.x64.exe", L"pinsel"},
        {L"C:\\v2.0\\pinsel", L"pinsel"},
        {L"pinsel.exe", L"pinsel"},
        {L"C:\\", L""},
        {L"", L""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(programName(c.path), c.expected) << c.path;
    }
}

TEST(EditorCommand, TakesAnAnswerAsAPath) {
    const struct {
        const wchar_t* answer;
        const wchar_t* expected;
    } cases[] = {
        {L"C:\\a b\\c.exe", L"C:\\a b\\c.exe"},
        {L"\"C:\\a b\\c.exe\"", L"C:\\a b\\c.exe"},
        {L"  \"C:\\a b\\c.exe\"  ", L"C:\\a b\\c.exe"},
        {L" C:\\c.exe ", L"C:\\c.exe"},
        {L"\"C:\\c.exe\" /n", L"C:\\c.exe\" /"},
        {L"\"\"", L""},
        {L"\"", L""},
        {L"", L""},
        {L"   ", L""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(chosenProgram(c.answer), c.expected) << c.answer;
    }
}

TEST(EditorCommand, KnowsWholePaths) {
    for (const wchar_t* path : {L"C:\\a.exe", L"z:\\", L"\\\\server\\share\\a.exe"}) {
        EXPECT_TRUE(isWholePath(path)) << path;
    }
    for (const wchar_t* path :
         {L"", L"a.exe", L"\\a.exe", L"C:", L"C:a.exe", L"C:/a.exe", L"?", L".\\a.exe"}) {
        EXPECT_FALSE(isWholePath(path)) << path;
    }
}

TEST(EditorCommand, QuotesWhatHoldsABlank) {
    EXPECT_EQ(editorCommandLine(L"C:\\a\\b.exe", L"C:\\BILD~1.JPG"), L"C:\\a\\b.exe C:\\BILD~1.JPG");
    EXPECT_EQ(editorCommandLine(L"C:\\a b\\c.exe", L"C:\\BILD~1.JPG"), L"\"C:\\a b\\c.exe\" C:\\BILD~1.JPG");
    EXPECT_EQ(editorCommandLine(L"C:\\c.exe", L"C:\\Mein Bild.jpg"), L"C:\\c.exe \"C:\\Mein Bild.jpg\"");
}

}  // namespace
}  // namespace edit
