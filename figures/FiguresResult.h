#pragma once

#include "figures/FileResult.h"
#include "figures/Json.h"

#include <string>

namespace vireo {

/// What came of one file: its figures, a failure, or both.
struct FiguresResult {
    Json object;         ///< Null: none.
    std::string failure; ///< Why the file failed, in UTF-8; empty: it did not.
};

/// The same to be written.
FileResult ToFileResult(const FiguresResult& result);

} // namespace vireo
