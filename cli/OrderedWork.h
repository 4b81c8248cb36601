#pragma once

#include "cli/FileSource.h"
#include "figures/FileResult.h"

#include <cstddef>
#include <functional>

namespace vireo {

/// Works on the files of a source, on up to `threads` threads at a time, and hands each result to
/// `finish` in the source's order, on the calling thread. Only a few results a thread are kept
/// waiting for their turn, so memory does not grow with the number of files. With one thread
/// everything happens on the calling thread. Folders that cannot be listed are handed on as
/// failures.
void WorkInOrder(FileSource& source, std::size_t threads,
    const std::function<FileResult(const std::string& file)>& work,
    const std::function<void(const std::string& file, const FileResult& result)>& finish);

} // namespace vireo
