#pragma once

#include <string>

namespace app {

/// What the whole program knows, from its start to its end.
struct ProgramState {
    /// Folder of the program's file, ending in "\".
    std::wstring ProgramDir;
    /// Name of the active option set, "Set1" ... "Set4".
    std::wstring CurrentSet = L"Set1";
    /// Index in File1 of the item to preselect; follows the last one clicked.
    int StartIndex = 0;
    /// Full path of the external picture editor, or empty.
    std::wstring EditorPath;
    /// State of Screen2.
    int SecondScreen = 0;
    /// Drive and folder of the last show; where not empty, loading a set uses them instead of the stored
    /// ones.
    std::wstring rememberedDrive;
    std::wstring rememberedFolder;
};

}  // namespace app
