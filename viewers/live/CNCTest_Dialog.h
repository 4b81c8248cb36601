#pragma once

#include "scanner/LineAcquisition.h"
#include "viewers/noise/CNoiseBase_Dialog.h"

#include <memory>
#include <optional>

namespace Ui {
class CNCTest_Dialog;
}

namespace vireo {

class CLiveScanner;

/// The "Noise Check Test": the lines of a connected scanner, or one of a file, judged by the limit
/// of the noise. It is also the older and smaller viewer of noise files, to which the oscilloscope
/// hands them. The limit is the file's own, else the station's.
class CNCTest_Dialog : public CNoiseBase_Dialog {
    Q_OBJECT

public:
    /// Shows a file.
    explicit CNCTest_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    /// Checks an open scanner, from the start on.
    explicit CNCTest_Dialog(OpenScanner scanner, QWidget* parent = nullptr);
    ~CNCTest_Dialog() override;

protected:
    void LoadFile(const std::filesystem::path& path) override;
    void ShowFigures() override;
    void ShowCursor(std::optional<std::int64_t> pixel) override;
    std::vector<std::string> HeaderLines() const override;
    const char* DocumentName() const override;

private:
    CNCTest_Dialog(QWidget* parent, std::unique_ptr<Ui::CNCTest_Dialog> ui);

    void SetUp();
    void SetUpScanner();
    void ReadStationLimit();
    int Limit() const;
    void OnRunning();
    void OnLine();
    void OnValues();
    void ShowVerdict();

    std::unique_ptr<Ui::CNCTest_Dialog> m_ui;
    std::unique_ptr<CLiveScanner> m_scanner; ///< Null for a file.
    bool m_bShowsScanner = false;            ///< The line shown is the scanner's.
    std::optional<int> m_iCorrectionBefore;  ///< The scanner is left as it was found.
    int m_iStationLimit = NoiseData::kDefaultLimitPercent;
};

} // namespace vireo
