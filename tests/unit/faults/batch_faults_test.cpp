// Running the tools and writing batches, with everything breaking that can.

#include "unit/faults/window_use_case.hpp"

#include <gtest/gtest.h>

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
    void act() override { form.userClicked(form.cmdOK); }

    static std::string page(const std::string& target) {
        return "<A HREF=\"D:\\out\\" + target + "\">\r\n";
    }
};

TEST(EveryStep, Export) {
    breakEveryStep(std::make_unique<Export>);
}

TEST(EveryStep, Run) {
    breakEveryStep(std::make_unique<ARun>);
}

TEST(FullDisk, Export) {
    fillDiskAtEveryByte(std::make_unique<Export>);
}

} // namespace
} // namespace tarnwick
