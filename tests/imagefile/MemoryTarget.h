#pragma once

#include "imagefile/CTIFTarget.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace vireo {

/// Keeps what is written, and fails at one call if told so.
class MemoryTarget : public CTIFTarget {
public:
    struct Log {
        std::string bytes;
        std::size_t calls = 0;
        std::size_t failingCall = 0; ///< Counted from 1; 0: none fails.
        bool isCommitted = false;
    };

    explicit MemoryTarget(Log& log) : m_log(log) { }

    FileStatus Open() override { return Call(); }
    FileStatus Write(std::span<const std::uint8_t> bytes) override
    {
        const FileStatus status = Call();
        if (status == FileStatus::Ok)
            m_log.bytes.append(bytes.begin(), bytes.end());
        return status;
    }
    FileStatus Overwrite(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        const FileStatus status = Call();
        if (status == FileStatus::Ok)
            std::copy(bytes.begin(), bytes.end(),
                m_log.bytes.begin() + static_cast<std::ptrdiff_t>(offset));
        return status;
    }
    FileStatus Commit() override
    {
        const FileStatus status = Call();
        m_log.isCommitted = status == FileStatus::Ok;
        return status;
    }

private:
    FileStatus Call()
    {
        return ++m_log.calls == m_log.failingCall ? FileStatus::DiskFull : FileStatus::Ok;
    }

    Log& m_log;
};

} // namespace vireo
