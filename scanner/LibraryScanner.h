#pragma once

#include "platform/SharedLibrary.h"
#include "scanner/ScannerDevice.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vireo {

/// Where a scanner library is looked for when no other is set: files of these names in the
/// program's own folder. The system's search path is never asked.
std::vector<std::filesystem::path> ScannerLibraryCandidates();

/// A scanner behind a library that is loaded when the device is opened, through the interface of
/// VireoScanner.h. What the library claims is checked before it is believed.
class LibraryScanner : public ScannerDevice {
public:
    /// The first of `candidates` that is there is loaded; names without a folder are in the
    /// program's.
    explicit LibraryScanner(
        std::vector<std::filesystem::path> candidates = ScannerLibraryCandidates());
    ~LibraryScanner() override;

    /// NoScanner when no library is found, when one of its entries is missing or when it is made
    /// for another version of the interface; ErrorDetail says which.
    ScannerError Open() override;
    void Close() override;
    ScannerError GetIdentity(ScannerIdentity& identity) override;
    ScannerError GetPaperStatus(PaperStatus& status) override;
    ScannerError AcquireLine(ScanLine& line) override;
    ScannerError GetRange(ScannerSetting setting, SettingRange& range) override;
    ScannerError GetValue(ScannerSetting setting, SettingPlace place, int& value) override;
    ScannerError SetValue(ScannerSetting setting, SettingPlace place, int value) override;
    ScannerError LastError() const override;
    std::string ErrorDetail() const override { return m_detail; }

private:
    struct Entries;

    ScannerError LoadLibrary();
    ScannerError ReadIdentity();

    std::vector<std::filesystem::path> m_candidates;
    SharedLibrary m_library;
    std::unique_ptr<Entries> m_entries;
    bool m_bOpen = false;
    ScannerIdentity m_identity;
    std::string m_detail;
};

} // namespace vireo
