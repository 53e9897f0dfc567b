#include "platform/win32/output_pipe.hpp"

#include "platform/win32/errors.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

// Only a pipe with a name can be read without being waited for. No other has the same name: none of
// this process lies at the same address, at the same moment.
std::wstring pipeName(const OutputPipe* pipe) {
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return LR"(\\.\pipe\tarnwick-run-)" + std::to_wstring(GetCurrentProcessId()) + L'-' +
           std::to_wstring(reinterpret_cast<std::uintptr_t>(pipe)) + L'-' +
           std::to_wstring(ticks.QuadPart);
}

} // namespace

OutputPipe::OutputPipe() : event_(required(CreateEventW(nullptr, TRUE, FALSE, nullptr))) {
    const std::wstring name = pipeName(this);
    constexpr DWORD bytesInSystem = 64 * 1024;
    reader_ = required(CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_INBOUND | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1,
        bytesInSystem, bytesInSystem, 0, nullptr));
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    writer_ = required(CreateFileW(name.c_str(), GENERIC_WRITE, 0, &inheritable, OPEN_EXISTING,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
}

OutputPipe::~OutputPipe() {
    if (listening_) { // the system must not write into what is no more
        DWORD count = 0;
        CancelIoEx(reader_.get(), &overlapped_);
        GetOverlappedResult(reader_.get(), &overlapped_, &count, TRUE);
    }
}

void OutputPipe::listen() {
    overlapped_ = {};
    overlapped_.hEvent = event_.get();
    // What could be read at once sets the event too.
    listening_ = ReadFile(reader_.get(), block_.data(), static_cast<DWORD>(block_.size()), nullptr,
                          &overlapped_) != 0 ||
                 GetLastError() == ERROR_IO_PENDING;
}

bool OutputPipe::takeArrived(KeptOutput& output) {
    if (!listening_ || WaitForSingleObject(event_.get(), 0) != WAIT_OBJECT_0) {
        return false;
    }
    listening_ = false;
    DWORD count = 0;
    if (GetOverlappedResult(reader_.get(), &overlapped_, &count, FALSE) == 0) {
        return false;
    }
    output.add(std::string_view(block_.data(), count));
    listen();
    return true;
}

} // namespace tarnwick
