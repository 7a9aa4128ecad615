__declspec(dllexport) int fromTheLibrary();

int fromTheLibrary() {
    return 1;
}
