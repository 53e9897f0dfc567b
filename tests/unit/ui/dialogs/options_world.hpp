#pragma once

#include "platform/run_time_error.hpp"
#include "support/forwarding_files.hpp"
#include "support/hosted_world.hpp"
#include "support/messages.hpp"
#include "support/scripted_desktop.hpp"
#include "ui/dialogs/frm_options.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwick {

// A file system that can fail in the one way that no existence test keeps to itself.
class ExhaustibleFiles : public ForwardingFiles {
  public:
    using ForwardingFiles::ForwardingFiles;

    [[nodiscard]] bool canListFolder(std::string_view folder) const override {
        fault();
        return ForwardingFiles::canListFolder(folder);
    }
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        fault();
        return ForwardingFiles::firstNormalFile(path);
    }

    bool outOfMemory = false;

  private:
    void fault() const {
        if (outOfMemory) {
            throw std::bad_alloc();
        }
    }
};

inline Message report(std::string_view procedure, ErrorNumber number) {
    return errorReport("frmOptions", procedure, number);
}

// The dialog over a definition whose tools exist.
struct OptionsWorld : testing::Test {
    BatchDefinition definition;
    HostedWorld world;
    ExhaustibleFiles files{world.files()};
    ScriptedDesktop desktop;
    frmOptions form{definition, files, desktop};

    OptionsWorld() {
        definition.sAppFolder = "C:\\App\\";
        definition.sMPExecutable = "C:\\App\\mp.exe";
        definition.sCNSExecutable = "C:\\App\\cns.exe";
        definition.iProcessMP = 1;
        definition.iProcessCNS = 1;
        world.makeDrive('D');
        for (const char* const tool :
             {R"(C:\App\mp.exe)", R"(C:\App\cns.exe)", R"(D:\Tools\mp.exe)"}) {
            world.write(tool, "");
        }
        world.makeFolder(R"(C:\Logs)");
    }

    // The user goes to the field and types over what is there.
    void type(TextBox& field, std::string_view text) {
        form.userMovedFocus(field);
        field.userSelected(0, static_cast<int>(field.text().size()));
        field.userTyped(text);
    }

    void expectRefusal(const TextBox& field, std::string_view message) {
        EXPECT_THAT(desktop.messages, testing::ElementsAre(warning(message)));
        EXPECT_TRUE(form.visible());
        EXPECT_EQ(form.focused(), &field);
        EXPECT_EQ(field.selStart(), 0);
        EXPECT_EQ(field.selLength(), static_cast<int>(field.text().size()));
    }
};

} // namespace tarnwick
