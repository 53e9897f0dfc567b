#include "window/gallery.hpp"

#include <exception>
#include <fstream>

int main(int argc, char* argv[]) {
    constexpr int arguments = 4;
    try {
        return argc == arguments && tarnwick::gallery::run(argv[1], argv[2], argv[3]) ? 0 : 2;
    } catch (const std::exception& error) {
        std::ofstream("gallery-error.txt") << error.what() << '\n';
        return 1;
    }
}
