// The stored definition: saved, opened, begun anew, with everything breaking that can.

#include "unit/faults/window_use_case.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

struct DefinitionUseCase : WindowUseCase {
    std::string state() override {
        return WindowUseCase::state() +
               (form.definition().bSettingsChanged ? " with changes" : " without changes");
    }
};

struct Save : DefinitionUseCase {
    Save() { form.cboLanguage.userPicked(4); }
    void act() override { form.mnuSaveINI.userClicked(); }
};

struct SaveAs : DefinitionUseCase {
    SaveAs() {
        world.write(R"(D:\other.ini)", "Language=French\r\n");
        form.cboLanguage.userPicked(4);
    }
    void act() override {
        choose(R"(D:\other.ini)");
        form.mnuSaveAsINI.userClicked();
        desktop.chosenFiles.clear();
    }
};

struct New : DefinitionUseCase {
    void act() override {
        choose(R"(D:\new.ini)");
        form.mnuNewINI.userClicked();
        desktop.chosenFiles.clear();
    }
};

struct Open : DefinitionUseCase {
    Open() { world.write(R"(D:\other.ini)", storedDefinition() + "Language=French\r\n"); }
    void act() override {
        choose(R"(D:\other.ini)");
        form.mnuOpenINI.userClicked();
        desktop.chosenFiles.clear();
    }
};

TEST(EveryStep, Save) {
    breakEveryStep(std::make_unique<Save>);
}

TEST(EveryStep, Save_as) {
    breakEveryStep(std::make_unique<SaveAs>);
}

TEST(EveryStep, New) {
    breakEveryStep(std::make_unique<New>);
}

TEST(EveryStep, Open) {
    breakEveryStep(std::make_unique<Open>);
}

TEST(FullDisk, Save) {
    fillDiskAtEveryByte(std::make_unique<Save>);
}

TEST(FullDisk, Save_as) {
    fillDiskAtEveryByte(std::make_unique<SaveAs>);
}

TEST(FullDisk, New) {
    fillDiskAtEveryByte(std::make_unique<New>);
}

} // namespace
} // namespace tarnwick
