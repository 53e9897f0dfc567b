inline auto reader() {
    return &GetWindowTextA;
}
