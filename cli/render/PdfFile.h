#pragma once

#include "platform/AtomicFile.h"

#include <QIODevice>

#include <filesystem>

namespace vireo {

/// A file that a PDF is written into page by page, complete or absent, so that a report of any
/// length needs no memory for what is written already.
class PdfFile : public QIODevice {
public:
    FileStatus Create(const std::filesystem::path& target);
    /// The first failure of writing, if there was one; else the file is there.
    FileStatus Commit() { return m_file.Commit(AtomicFile::Flush::WhenReplacing); }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 length) override;

private:
    AtomicFile m_file;
};

} // namespace vireo
