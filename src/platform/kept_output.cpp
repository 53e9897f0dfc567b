#include "platform/kept_output.hpp"

#include <algorithm>

namespace tarnwick {

void KeptOutput::add(std::string_view bytes) {
    const auto count = std::min(bytes.size(), keptOutput - first_.size());
    first_.append(bytes.substr(0, count));
    last_.append(bytes.substr(count));
    if (last_.size() > 2 * keptOutput) { // not for every byte anew
        cutOff_ += last_.size() - keptOutput;
        last_.erase(0, last_.size() - keptOutput);
    }
}

std::string KeptOutput::text() const {
    const auto end = std::min(last_.size(), keptOutput);
    const auto leftOut = cutOff_ + last_.size() - end;
    if (leftOut == 0) {
        return first_ + last_;
    }
    return first_ + "\n[bytes left out: " + std::to_string(leftOut) + "]\n" +
           last_.substr(last_.size() - end);
}

} // namespace tarnwick
