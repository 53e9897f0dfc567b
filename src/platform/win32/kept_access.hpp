#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarnwick {

// The access list and the attributes (hidden, system, archive, ...) of a file that is about to be
// replaced, to be given to the one that takes its place.
class KeptAccess {
  public:
    // Nothing is kept where the file is not there; what this user may not read is not kept either.
    explicit KeptAccess(const std::wstring& file);

    // As far as the system lets this user; what it refuses stays as it is. Behind the move: before
    // it the list could take away the right to move the file.
    void giveTo(const std::wstring& file) noexcept;

  private:
    DWORD attributes_;
    std::vector<BYTE> accessList_; // a security descriptor; empty where there is none
};

} // namespace tarnwick
