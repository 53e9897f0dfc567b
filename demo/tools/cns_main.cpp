#include "tool.hpp"

#include <iostream>
#include <vector>

int main(int argc, char** argv) {
    const std::vector<std::string> all(argv, argv + argc);
    return demo::runCns(std::span(all).subspan(all.empty() ? 0 : 1), std::cout, std::cerr);
}
