#pragma once

#include "figures/FileResult.h"

#include <cstddef>
#include <functional>

namespace vireo {

/// Works on the items 0 to count - 1, on up to `threads` threads at a time, and hands each result
/// to `finish` in the items' order, on the calling thread. Only a few results a thread are kept
/// waiting for their turn, so memory does not grow with the number of items. With one thread
/// everything happens on the calling thread.
void WorkInOrder(std::size_t count, std::size_t threads,
    const std::function<FileResult(std::size_t)>& work,
    const std::function<void(std::size_t, FileResult)>& finish);

} // namespace vireo
