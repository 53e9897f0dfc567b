#include "platform/win32/kept_access.hpp"

#include <windows.h>

#include <vector>

namespace tarnwick {
namespace {

// Empty where it cannot be read.
std::vector<BYTE> accessListOf(const std::wstring& file) {
    DWORD size = 0;
    GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> descriptor(size);
    if (size == 0 || GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(),
                                      size, &size) == 0) {
        return {};
    }
    return descriptor;
}

// The entries as they stand: those that the old file got from its folder stay marked as such and go
// on following it. The functions that work them out anew would take them from the folder in which
// the heir still lies.
void giveAccessList(const std::wstring& heir, std::vector<BYTE> descriptor) {
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(descriptor.data(), &control, &revision) != 0 &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
        SetSecurityDescriptorControl(descriptor.data(), SE_DACL_AUTO_INHERIT_REQ,
                                     SE_DACL_AUTO_INHERIT_REQ);
    }
    SetFileSecurityW(heir.c_str(), DACL_SECURITY_INFORMATION, descriptor.data());
}

} // namespace

void takeOverAccess(const std::wstring& heir, const std::wstring& file) noexcept {
    const DWORD attributes = GetFileAttributesW(file.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return;
    }
    SetFileAttributesW(heir.c_str(), attributes);
    if (auto descriptor = accessListOf(file); !descriptor.empty()) {
        giveAccessList(heir, std::move(descriptor));
    }
}

} // namespace tarnwick
