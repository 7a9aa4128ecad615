#include "script/script_file.h"

#include <gtest/gtest.h>

#include "script/script_writer.h"
#include "script/show_script.h"
#include "support/scratch_folder.h"

namespace script {
namespace {

TEST(ScriptFile, IsReadAsItWasWritten) {
    const support::ScratchFolder folder;
    const std::wstring inCodePage =
        scriptText({{L"Übung001", L"Größe *P=5 *D"}, {L"Übung002", L"€ „Ja“ *E=C"}});
    const std::wstring beyond = scriptText({{L"Übung001", L"日本 *M=Мир"}}, {L"fremd Größe"});
    for (const std::wstring& text : {inCodePage, beyond}) {
        folder.file(kScriptFile, scriptFileBytes(text));
        EXPECT_EQ(readScriptFile(folder.path()), text);
    }
    EXPECT_EQ(scriptFileBytes(L"Größe\r\n"),
              "Gr\xF6\xDF"
              "e\r\n");
    EXPECT_EQ(scriptFileBytes(beyond).substr(0, 3), "\xEF\xBB\xBF");
}

}  // namespace
}  // namespace script
