#include "program/installation.hpp"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

namespace tarnwick::test {
namespace {

namespace fs = std::filesystem;

// The build folder: this test program lies in tests/program below it.
fs::path buildFolder() {
    std::vector<char> name(MAX_PATH);
    GetModuleFileNameA(nullptr, name.data(), MAX_PATH);
    return fs::path(name.data()).parent_path().parent_path().parent_path();
}

// Of an earlier installation something may still be there, which a batch that goes on holds.
fs::path newFolder() {
    for (int number = 1;; ++number) {
        fs::path folder = fs::temp_directory_path() / ("tarnwick test " + std::to_string(number));
        if (fs::create_directory(folder)) {
            return folder;
        }
    }
}

// Of another test, or of an earlier run that was cut short.
void forgetStoredSettings() {
    RegDeleteTreeA(HKEY_CURRENT_USER, "Software\\Corvane");
}

} // namespace

Installation::Installation() : folder_(newFolder()) {
    forgetStoredSettings();
    for (const char* below : {"in", "cns", "out", "temp"}) {
        fs::create_directories(folder_ / below);
    }
    fs::copy_file(buildFolder() / "Tarnwick.exe", folder_ / "Tarnwick.exe");
    fs::copy_file(buildFolder() / "demo/tools/mp.exe", folder_ / "mp.exe");
    fs::copy_file(buildFolder() / "demo/tools/cns.exe", folder_ / "cns.exe");
    _putenv_s("TEMP", path("temp").c_str());
}

Installation::~Installation() {
    forgetStoredSettings();
    std::error_code ignored; // a batch that is still going may hold a file
    fs::remove_all(folder_, ignored);
    _putenv_s("TEMP", folder_.parent_path().string().c_str());
}

std::string Installation::path(std::string_view below) const {
    return folder_.string() + "\\" + std::string(below);
}

void Installation::write(std::string_view below, std::string_view content) const {
    std::ofstream(path(below), std::ios::binary) << content;
}

std::string Installation::read(std::string_view below) const {
    std::ifstream file(path(below), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Installation::replaceMP(std::string_view program) const {
    fs::copy_file(buildFolder() / program, folder_ / "mp.exe",
                  fs::copy_options::overwrite_existing);
}

void Installation::add(std::string_view program) const {
    const fs::path file = buildFolder() / program;
    fs::copy_file(file, folder_ / file.filename(), fs::copy_options::overwrite_existing);
}

void Installation::takeDemoRecords() const {
    fs::copy(buildFolder() / "tests/program/demo_records", folder_ / "in");
}

void Installation::makeFolder(std::string_view below) const {
    CreateDirectoryA(path(below).c_str(), nullptr);
}

bool Installation::exists(std::string_view below) const {
    return GetFileAttributesA(path(below).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string Installation::temporaryFiles() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_ / "temp")) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    std::string all;
    for (const std::string& name : names) {
        all += (all.empty() ? "" : " ") + name;
    }
    return all;
}

std::string Installation::definition() const {
    std::string text = "Process MP=1\r\nProcess CNS=1\r\nInput File Extension=*.met\r\n"
                       "CNS Output File Extension=.cns\r\nInput Folder=" +
                       path("in") + "\r\nCNS Output Folder=" + path("cns") + "\r\n";
    for (const char* product :
         {"Info_file", "Leftovers", "Error", "Text", "Html", "Faq", "Sgml", "Xml", "Dif"}) {
        text += std::string("GRID_") + product + "=" + path("out") + "\r\n";
    }
    return text;
}

std::string record(std::string_view title) {
    return "Identification:\r\n  Citation:\r\n    Title: " + std::string(title) +
           "\r\n    Originator: Survey of the Inner Lakes\r\n    Publication_Date: 20260302\r\n";
}

} // namespace tarnwick::test
