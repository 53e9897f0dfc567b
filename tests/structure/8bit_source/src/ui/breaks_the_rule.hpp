inline const char* folder() {
    return getenv("TEMP");
}
