inline int length(HWND window) {
    return GetWindowTextLengthA(window);
}
