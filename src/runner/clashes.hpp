#pragma once

#include "runner/job.hpp"

namespace tarnwick {

// Takes out of the job the records that would make the same file as another one, and those of which
// a product would overwrite a record: another one, or, unless `inPlace`, the record itself. All of
// them are told; names match without regard to case. Where the outputs are not known, none is.
void refuseClashes(Job& job, bool inPlace, const Files& files);

} // namespace tarnwick
