#include "unit/faults/window_use_case.hpp"

#include "definition/ini_file.hpp"

namespace tarnwick {

std::string storedDefinition() {
    return "MP EXECUTABLE=C:\\App\\mp.exe\r\nCNS EXECUTABLE=C:\\App\\cns.exe\r\n"
           "Process MP=1\r\nProcess CNS=1\r\nCommand Line Logging=True\r\n"
           "Command Line Log Filename=D:\\log.txt\r\nInput Folder=D:\\in\r\n"
           "Input File Extension=*.met\r\nCNS Output Folder=D:\\cns\r\n"
           "CNS Output File Extension=.cns\r\nConvert HyperLink To Relative Path=True\r\n"
           "Configuration File=D:\\plain.cfg\r\n"
           "GRID_Error=D:\\out\r\nGRID_Html=D:\\out\r\nGRID_Faq=D:\\out\r\n";
}

WindowUseCase::WindowUseCase() {
    putFiles();
    process.givenProgramFolder = R"(C:\App)";
    process.variables["TEMP"] = R"(C:\Temp)";
    form.measured({.width = 12735, .height = 8460}, {.width = 15360, .height = 11520});
    form.show();
    form.userClicked(form.cmdSelectFiles.at(1));
}

void WindowUseCase::putFiles() {
    world.makeDrive('D');
    for (const char* const folder : {R"(C:\Temp)", R"(D:\out)", R"(D:\cns)"}) {
        world.makeFolder(folder);
    }
    for (const char* const file :
         {R"(C:\App\mp.exe)", R"(C:\App\cns.exe)", R"(D:\in\a.met)", R"(D:\in\b.met)"}) {
        world.write(file, "");
    }
    world.write(R"(D:\plain.cfg)", "indent\r\n");
    world.write(R"(C:\App\TARNWICK.ini)", storedDefinition());
}

std::string WindowUseCase::state() {
    const BatchDefinition definition = form.definition();
    return iniFileText(definition, world.files()) + definition.sINIFile;
}

} // namespace tarnwick
