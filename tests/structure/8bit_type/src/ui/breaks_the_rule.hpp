inline LPSTR name(WIN32_FIND_DATAA& entry) {
    return entry.cFileName;
}
