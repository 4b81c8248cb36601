#pragma once

#include <string>

namespace vireo {

/// What came of one file: a JSON object, a failure, or both.
struct FileResult {
    std::string object;      ///< One JSON object on one line, without line end; empty: none.
    std::string failure;     ///< Why the file failed, in UTF-8; empty: it did not.
    bool isRejected = false; ///< It was asked whether the file is in order, and it is not.
};

} // namespace vireo
