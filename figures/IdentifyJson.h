#pragma once

#include "figures/FileResult.h"

namespace vireo {

struct Subject;

/// What a file is and which viewer opens it.
FileResult IdentifyFile(const Subject& subject);

} // namespace vireo
