#pragma once

#include "support/outputs.hpp"
#include "unit/ui/main/main_world.hpp"

namespace tarnwick {

// The window with a batch that can be run: both tools over two records.
struct RunReadyWorld : MainWorld {
    static constexpr const char* batch = R"(C:\Temp\MPtmp.bat)";
    static constexpr const char* marker = R"(C:\Temp\MPdone.tmp)";

    RunReadyWorld() {
        form.show();
        BatchDefinition definition = form.definition();
        definition.iProcessCNS = 1;
        definition.sInputFolder = R"(D:\in)";
        definition.sCNSOutputFolder = R"(D:\cns)";
        output(definition, "Error").sOutputFolder = R"(D:\out)";
        output(definition, "Xml").bBuild = false;
        definition.bSettingsChanged = false;
        form.lstSelected.setItems({"a.met", "b.met"});
        form.showDefinition(definition);
        // Every tool ends at once.
        interpreter.run = [this](const FakeCommandInterpreter::Started&) {
            if (toolsEnd) {
                world.write(marker, "Done!\r\n");
            }
        };
        interpreter.hasEnded = [this] { return toolsEnd; };
    }

    // What the user does when the first tool runs.
    void whileRunning(std::function<void()> act) {
        inFirstTool = std::move(act);
        events.handler = [this] {
            if (!interpreter.started.empty() && inFirstTool) {
                std::exchange(inFirstTool, nullptr)();
            }
        };
    }
    [[nodiscard]] const std::string& status() const { return form.StatusBar1.panelText(1); }
    void expectIdle() {
        EXPECT_EQ(form.cmdCancel.caption(), "Close");
        EXPECT_FALSE(form.ProgressBar1.visible());
        EXPECT_EQ(form.ProgressBar1.value(), 0);
        EXPECT_EQ(form.mousePointer(), MousePointer::Default);
        EXPECT_FALSE(world.exists(batch));
        EXPECT_FALSE(world.exists(marker));
    }
    void expectRefused(std::string_view message) {
        EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(message)));
        EXPECT_TRUE(interpreter.started.empty());
        expectIdle();
    }

    bool toolsEnd = true;
    std::function<void()> inFirstTool;
};

} // namespace tarnwick
