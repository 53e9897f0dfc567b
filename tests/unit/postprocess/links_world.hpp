#pragma once

#include "postprocess/relative_links.hpp"
#include "support/hosted_world.hpp"
#include "support/scripted_desktop.hpp"

#include <string>
#include <string_view>

namespace tarnwick {

// A machine with records in C:\in and a folder on drive `drive` for each product of the record
// rec.met, such as C:\out\html for rec.html.
class LinksWorld {
  public:
    explicit LinksWorld(char drive = 'C') : out(std::string(1, drive) + ":\\out\\") {
        MyDefaultSettings(definition);
        world.makeFolder("C:\\in");
        world.makeDrive(drive);
        definition.sInputFolder = "C:\\in";
        for (OutputDefinition& row : definition.MPOutputs) {
            row.sOutputFolder = out + row.sFileType;
            world.makeFolder(row.sOutputFolder);
        }
    }

    void fix(Files& files, std::string_view record = "rec.met") {
        FixRelativePaths(definition, files, desktop, "C:\\in", record);
    }
    void fix() { fix(world.files()); }

    HostedWorld world;
    ScriptedDesktop desktop;
    BatchDefinition definition;
    std::string out; // with a final "\"
};

inline std::string hrefLine(std::string_view target) {
    return "<A HREF=\"" + std::string(target) + "\">x</A>\r\n";
}

} // namespace tarnwick
