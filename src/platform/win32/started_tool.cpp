#include "platform/win32/started_tool.hpp"

#include "platform/case_folding.hpp"
#include "platform/tool_command_line.hpp"
#include "platform/win32/errors.hpp"
#include "platform/win32/system_text.hpp"
#include "platform/win32/win32_open_files.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

// The system drops dots and blanks at the end of a name, and so comes upon the interpreter all the
// same.
bool isBatchFile(std::string_view program) {
    const auto end = program.find_last_not_of(". ");
    program = program.substr(0, end == std::string_view::npos ? 0 : end + 1);
    return program.size() >= 4 && (equalIgnoringCase(program.substr(program.size() - 4), ".bat") ||
                                   equalIgnoringCase(program.substr(program.size() - 4), ".cmd"));
}

std::wstring lineOf(const std::wstring& program, const std::vector<std::string>& arguments) {
    std::vector<std::wstring> wide;
    for (const std::string& argument : arguments) {
        if (argument.contains('\0')) { // which would be the end of the line
            raiseSystemError(ERROR_INVALID_NAME);
        }
        wide.push_back(toWidePath(argument));
    }
    return commandLineOf(program, wide);
}

Handle newJob() {
    Handle job = required(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE |
        // A crash shows no message (see Win32ToolProcesses), whatever the tool itself has set.
        JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
    requireDone(SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                        sizeof limits));
    return job;
}

// What a process is to be born with.
class BirthAttributes {
  public:
    // Only these handles are inherited: slots that start tools at the same time must not hand each
    // other's on. In the job from the beginning: there is no moment at which the end of this
    // process would leave the tool behind. The arguments outlive this.
    BirthAttributes(std::span<HANDLE> inherited, HANDLE& job) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 2, 0, &size);
        memory_.resize(size);
        auto* list = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory_.data());
        requireDone(InitializeProcThreadAttributeList(list, 2, 0, &size));
        list_.reset(list);
        add(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, static_cast<void*>(inherited.data()),
            inherited.size_bytes());
        add(PROC_THREAD_ATTRIBUTE_JOB_LIST, static_cast<void*>(&job), sizeof job);
    }

    [[nodiscard]] LPPROC_THREAD_ATTRIBUTE_LIST get() const noexcept { return list_.get(); }

  private:
    struct Deleting {
        void operator()(LPPROC_THREAD_ATTRIBUTE_LIST list) const noexcept {
            DeleteProcThreadAttributeList(list);
        }
    };

    void add(DWORD_PTR attribute, void* value, std::size_t size) {
        requireDone(
            UpdateProcThreadAttribute(list_.get(), 0, attribute, value, size, nullptr, nullptr));
    }

    std::vector<std::byte> memory_;
    std::unique_ptr<std::remove_pointer_t<LPPROC_THREAD_ATTRIBUTE_LIST>, Deleting> list_;
};

// Ctrl+C is for this process alone, which decides what becomes of the tools. Where it has no
// console, none is to pop up for each of them.
DWORD creationFlags() noexcept {
    const bool hasConsole = GetConsoleCP() != 0;
    return EXTENDED_STARTUPINFO_PRESENT | CREATE_NEW_PROCESS_GROUP |
           (hasConsole ? 0U : DWORD{CREATE_NO_WINDOW});
}

// On a busy machine, one process of some thousand dies under Wine before it has begun; the system
// tells that by an error of its own, and the next attempt succeeds.
template <typename Create>
PROCESS_INFORMATION createdProcess(const Create& create) {
    constexpr int attempts = 3;
    PROCESS_INFORMATION created{};
    for (int attempt = 1; create(created) == 0; ++attempt) {
        if (GetLastError() != ERROR_INTERNAL_ERROR || attempt == attempts) {
            raiseSystemError(GetLastError());
        }
    }
    return created;
}

// In order not to wait for a process that is not of this job: a number is given anew.
Handle memberOf(const Handle& job, ULONG_PTR id) noexcept {
    Handle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE,
                               static_cast<DWORD>(id)));
    BOOL isMember = FALSE;
    const bool known = process.isOpen() &&
                       IsProcessInJob(process.get(), job.get(), &isMember) != 0 && isMember != 0;
    return known ? std::move(process) : Handle();
}

} // namespace

bool canBeStarted(const std::string& program) {
    if (isBatchFile(program)) {
        return false;
    }
    try {
        std::array<char, 2> beginning{};
        return openWin32File(possible(program))->read(beginning) == 2 &&
               std::string_view(beginning.data(), beginning.size()) == "MZ";
    } catch (const RunTimeError&) {
        return false;
    }
}

StartedTool::StartedTool(const ToolCall& call, const Handle& writer) : job_(newJob()) {
    const std::wstring program = toWidePath(possible(call.program));
    const std::wstring folder = toWidePath(possible(call.folder));
    std::wstring line = lineOf(program, call.arguments);
    if (isBatchFile(call.program)) {
        raiseSystemError(ERROR_BAD_EXE_FORMAT);
    }
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const Handle nothing =
        required(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                             OPEN_EXISTING, 0, nullptr));
    std::array<HANDLE, 2> inherited{nothing.get(), writer.get()};
    HANDLE job = job_.get();
    const BirthAttributes attributes(inherited, job);
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    start.StartupInfo.hStdInput = nothing.get();
    start.StartupInfo.hStdOutput = writer.get();
    start.StartupInfo.hStdError = writer.get();
    start.lpAttributeList = attributes.get();
    const PROCESS_INFORMATION started = createdProcess([&](PROCESS_INFORMATION& created) {
        return CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, creationFlags(),
                              nullptr, folder.c_str(), &start.StartupInfo, &created);
    });
    process_ = Handle(started.hProcess);
    const Handle thread(started.hThread);
}

void StartedTool::endAll() noexcept {
    TerminateJobObject(job_.get(), ERROR_PROCESS_ABORTED);
    WaitForSingleObject(process_.get(), INFINITE);
    // The others are on their way to their end; until they are there they keep files open.
    constexpr std::size_t most = 1024;
    struct {
        JOBOBJECT_BASIC_PROCESS_ID_LIST list;
        std::array<ULONG_PTR, most> room;
    } members{};
    QueryInformationJobObject(job_.get(), JobObjectBasicProcessIdList, &members, sizeof members,
                              nullptr);
    const ULONG_PTR* ids = members.list.ProcessIdList;
    for (DWORD i = 0; i < members.list.NumberOfProcessIdsInList; ++i) {
        if (const Handle process = memberOf(job_, ids[i]); process.isOpen()) {
            WaitForSingleObject(process.get(), INFINITE);
        }
    }
}

DWORD StartedTool::status() const noexcept {
    DWORD status = 0;
    GetExitCodeProcess(process_.get(), &status);
    return status;
}

} // namespace tarnwick
