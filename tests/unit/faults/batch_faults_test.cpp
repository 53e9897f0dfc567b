// Running the tools and writing batches, with everything breaking that can.

#include "definition/ini_file.hpp"
#include "postprocess/relative_links.hpp"
#include "processing/unattended_mode.hpp"
#include "ui/dialogs/frm_options.hpp"
#include "unit/faults/window_use_case.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace tarnwick {
namespace {

struct Export : WindowUseCase {
    Export() {
        world.write(R"(D:\run.bat)", "an older batch\r\n");
        writtenInPlace = {"/d/run.bat"}; // what could be written of it stays
    }
    void act() override {
        choose(R"(D:\run.bat)");
        form.userClicked(form.cmdCreateBatFile);
        desktop.chosenFiles.clear();
    }
};

// The stand-in of the interpreter leaves the marker and, for MP, the pages.
struct ARun : WindowUseCase {
    ARun() {
        writtenInPlace = {"/d/log.txt"};
        reportsOfFullDisk = 2; // a page that cannot be rewritten; then the log, which ends the run
        for (const std::string name : {"a", "b"}) {
            alsoWhole.emplace_back("/d/out/" + name + ".html", page(name + "_faq.htm"));
            alsoWhole.emplace_back("/d/out/" + name + "_faq.htm", page(name + ".html"));
        }
        interpreter.run = [this](const FakeCommandInterpreter::Started& batch) {
            for (const std::string name : {"a", "b"}) {
                if (batch.content.contains("mp.exe") && batch.content.contains(name + ".cns")) {
                    world.write("D:\\out\\" + name + ".html", page(name + "_faq.htm"));
                    world.write("D:\\out\\" + name + "_faq.htm", page(name + ".html"));
                }
            }
            world.write(R"(C:\Temp\MPdone.tmp)", "Done!\r\n");
        };
    }
    void act() override {
        form.mnuOptions.userClicked(); // a run may have switched logging off, without a word
        form.userClicked(form.cmdOK);
    }

    static std::string page(const std::string& target) {
        return "<A HREF=\"D:\\out\\" + target + "\">\r\n";
    }
};

// A stored definition that is run unattended. The stand-in of the interpreter does what the batch
// does in the end: it deletes it, and the note.
struct Unattended : UseCase {
    explicit Unattended(std::string givenOptions) : options(std::move(givenOptions)) {
        takesAnotherName = true; // a batch of the same name may be at work
        world.makeDrive('D');
        for (const char* const folder : {R"(C:\Temp)", R"(D:\out)", R"(D:\cns)"}) {
            world.makeFolder(folder);
        }
        for (const char* const file : {R"(C:\App\mp.exe)", R"(C:\App\cns.exe)", R"(D:\in\a.met)",
                                       R"(D:\in\b.met)", R"(D:\plain.cfg)"}) {
            world.write(file, "");
        }
        world.write(R"(C:\App\night.ini)", storedDefinition());
        world.write(R"(C:\Temp\MPDELETE.bat)", "del %1\r\n");
        interpreter.run = [this](const FakeCommandInterpreter::Started& batch) {
            world.files().remove(batch.path);
            for (const auto& note : world.files().listFiles(R"(C:\Temp)", "MP_Notify*.txt").names) {
                world.files().remove("C:\\Temp\\" + note);
            }
        };
    }
    void act() override {
        interpreter.started.clear();
        definition = BatchDefinition();
        MyDefaultSettings(definition);
        definition.sAppFolder = "C:\\App\\";
        definition.sTempFolder = "C:\\Temp\\";
        RunCommandLine(definition,
                       {.files = files,
                        .desktop = desktop,
                        .interpreter = interpreter,
                        .events = events,
                        .showHelp = [] {},
                        .showOptions = [] {}},
                       R"(-I C:\App\night.ini)" + options);
    }
    std::string state() override {
        return interpreter.started.empty() ? "nothing started"
                                           : interpreter.started.front().content;
    }

    std::string options;
    BatchDefinition definition;
    FakeClock clock;
    FakePendingEvents events{clock};
    FakeCommandInterpreter interpreter{world.files()};
};

// The pages of one record lie on that drive, the record on D:.
struct Links : UseCase {
    explicit Links(char drive) {
        MyDefaultSettings(definition);
        definition.sInputFolder = R"(D:\in)";
        const std::string out = std::string(1, drive) + ":\\out";
        world.makeDrive('D');
        world.makeFolder(R"(D:\in)");
        world.makeFolder(out);
        for (OutputDefinition& row : definition.MPOutputs) {
            row.sOutputFolder = out;
        }
        world.write(out + "\\a.html", "<A HREF=\"" + out + "\\a_faq.htm\">\r\n");
        world.write(out + "\\a_faq.htm", "<A HREF=\"" + out + "\\a.html\">\r\n");
    }
    void act() override { FixRelativePaths(definition, files, desktop, R"(D:\in)", "a.met"); }

    BatchDefinition definition;
};

// All of the options dialog, accepted.
struct Options : UseCase {
    Options() {
        answersAreTold = true; // by the refusal of what is not found
        world.write(R"(C:\App\mp.exe)", "");
        world.write(R"(C:\App\cns.exe)", "");
        world.makeFolder(R"(C:\Logs)");
        MyDefaultSettings(definition);
        definition.iProcessCNS = checked;
    }
    void act() override {
        frmOptions form(definition, files, desktop);
        form.show();
        form.txtMPEXE.setText(R"(C:\App\mp.exe)");
        form.txtCNS.setText(R"(C:\App\cns.exe)");
        form.chkCmdLogging.setValue(1);
        form.txtCmdFile.setText(R"(C:\Logs\night.log)");
        form.chkRelative.setValue(1);
        form.userPressedEnter();
    }
    std::string state() override { return iniFileText(definition, world.files()); }

    BatchDefinition definition;
};

MakeUseCase unattended(const std::string& options) {
    return [options] { return std::make_unique<Unattended>(options); };
}

MakeUseCase links(char drive) {
    return [drive] { return std::make_unique<Links>(drive); };
}

TEST(EveryStep, Unattended_run) {
    breakEveryStep(unattended(""));
}

TEST(EveryStep, Unattended_run_with_a_note) {
    breakEveryStep(unattended(" -n"));
}

TEST(EveryStep, Links_on_the_volume_of_the_records) {
    breakEveryStep(links('D'));
}

TEST(EveryStep, Links_on_another_volume) {
    breakEveryStep(links('C'));
}

TEST(EveryStep, Options) {
    breakEveryStep(std::make_unique<Options>);
}

TEST(FullDisk, Unattended_run_with_a_note) {
    fillDiskAtEveryByte(unattended(" -n"));
}

TEST(FullDisk, Links_on_the_volume_of_the_records) {
    fillDiskAtEveryByte(links('D'));
}

TEST(FullDisk, Links_on_another_volume) {
    fillDiskAtEveryByte(links('C'));
}

TEST(FullDisk, Links_where_the_volume_of_the_records_is_full) {
    fillDiskAtEveryByte(links('C'), "D:");
}

TEST(FullDisk, Links_where_the_volume_of_the_pages_is_full) {
    fillDiskAtEveryByte(links('C'), "C:");
}

TEST(EveryStep, Export) {
    breakEveryStep(std::make_unique<Export>);
}

TEST(EveryStep, Run) {
    breakEveryStep(std::make_unique<ARun>);
}

TEST(FullDisk, Export) {
    fillDiskAtEveryByte(std::make_unique<Export>);
}

TEST(FullDisk, Run) {
    fillDiskAtEveryByte(std::make_unique<ARun>);
}

TEST(FullDisk, Run_where_the_volume_of_the_records_is_full) {
    fillDiskAtEveryByte(std::make_unique<ARun>, "D:");
}

} // namespace
} // namespace tarnwick
