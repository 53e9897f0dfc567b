#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwick {

enum class MessageIcon { None, Exclamation };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

struct Message {
    std::string text;
    std::string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;

    bool operator==(const Message&) const = default;
};

struct FileDialog {
    enum class Kind { Open, Save };

    Kind kind = Kind::Open;
    std::string title;
    std::string filter;          // "Text File (*.txt)|*.txt|All Files (*.*)|*.*"
    int filterIndex = 1;         // the entry shown first, counted from 1
    std::string fileName{};      // shown at first; may hold a path
    std::string initialFolder{}; // where to start when fileName names no folder; may be empty
    bool fileMustExist = false;
    bool overwritePrompt = false;
    bool hideReadOnly = false;

    bool operator==(const FileDialog&) const = default;
};

// What this program shows outside its own forms. Every call is modal to the window that asks
// and returns when the user is done.
class Desktop {
  public:
    virtual ~Desktop() = default;

    // Whether anybody can see what is shown. Where nobody can, every call returns at once, as its
    // box would when it is answered by its default button, or cancelled (see
    // common/unseen_desktop.hpp).
    [[nodiscard]] virtual bool isSeen() const noexcept = 0;

    // Shows the message. Ok for an Ok box, however it is closed; Yes or No for the other, which is
    // shown again where it was closed otherwise. Raises 51 where a question cannot be shown.
    virtual MessageAnswer show(const Message& message) = 0;

    // The full path that the user chose. A name that is to be saved under and has no extension gets
    // that of the first filter, as long as that filter is chosen (see default_extension.hpp).
    // Nothing when the dialog is cancelled. Raises 51 where it cannot be shown. The current folder
    // stays, wherever the user went.
    virtual std::optional<std::string> chooseFile(const FileDialog& dialog) = 0;

    // Opens a file or web address with the program associated with it, in a normal window, with
    // `workingFolder` as that program's folder. The system's own result: more than 32 is success.
    virtual std::int32_t openDocument(std::string_view document,
                                      std::string_view workingFolder) = 0;
};

} // namespace tarnwick
