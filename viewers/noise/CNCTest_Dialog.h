#pragma once

#include "viewers/noise/CNoiseBase_Dialog.h"

#include <memory>

namespace Ui {
class CNCTest_Dialog;
}

namespace vireo {

/// The "Noise Check Test": the older and smaller viewer of noise files, to which the oscilloscope
/// hands them. The limit of the test is the file's own, else the station's.
class CNCTest_Dialog : public CNoiseBase_Dialog {
    Q_OBJECT

public:
    explicit CNCTest_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    ~CNCTest_Dialog() override;

protected:
    void ShowFigures() override;
    void ShowCursor(std::optional<std::int64_t> pixel) override;
    std::vector<std::string> HeaderLines() const override;
    const char* DocumentName() const override;

private:
    void ReadStationLimit();
    int Limit() const;

    std::unique_ptr<Ui::CNCTest_Dialog> m_ui;
    int m_iStationLimit = NoiseData::kDefaultLimitPercent;
};

} // namespace vireo
