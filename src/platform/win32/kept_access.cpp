#include "platform/win32/kept_access.hpp"

namespace tarnwick {
namespace {

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

// The entries are to be set as they stand: those that the old file got from its folder stay marked
// as such and go on following it. The functions that work them out anew would make them the file's
// own.
void keepInherited(std::vector<BYTE>& descriptor) {
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(descriptor.data(), &control, &revision) != 0 &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
        SetSecurityDescriptorControl(descriptor.data(), SE_DACL_AUTO_INHERIT_REQ,
                                     SE_DACL_AUTO_INHERIT_REQ);
    }
}

} // namespace

KeptAccess::KeptAccess(const std::wstring& file)
    : attributes_(GetFileAttributesW(file.c_str())), accessList_(accessListOf(file)) {
    if (!accessList_.empty()) {
        keepInherited(accessList_);
    }
}

void KeptAccess::giveTo(const std::wstring& file) noexcept {
    if (attributes_ != INVALID_FILE_ATTRIBUTES) {
        SetFileAttributesW(file.c_str(), attributes_);
    }
    if (!accessList_.empty()) {
        SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, accessList_.data());
    }
}

} // namespace tarnwick
