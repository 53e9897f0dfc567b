inline int count(const wchar_t* text) {
    return WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
}
