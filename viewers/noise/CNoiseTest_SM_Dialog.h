#pragma once

#include "viewers/controls/PositionUnit.h"
#include "viewers/noise/CNoiseBase_Dialog.h"

#include <memory>

class QRadioButton;

namespace Ui {
class CNoiseTest_SM_Dialog;
}

namespace vireo {

/// The "Noise Test" viewer: one scan line of a uniform target with its average, the band of +-5 %
/// around it and a mark wherever the line leaves it. The unit of the positions is kept between
/// runs.
class CNoiseTest_SM_Dialog : public CNoiseBase_Dialog {
    Q_OBJECT

public:
    /// Shows a file; an empty path shows an empty plot.
    explicit CNoiseTest_SM_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr);
    ~CNoiseTest_SM_Dialog() override;

protected:
    void OnInitDialog() override;
    void ShowFigures() override;
    void ShowCursor(std::optional<std::int64_t> pixel) override;
    std::vector<std::string> HeaderLines() const override;
    const char* DocumentName() const override;

private:
    int Limit() const;
    void SetUpCommands();
    QRadioButton& UnitButton(PositionUnit unit) const;
    void OnUnit(PositionUnit unit);
    void OnZoomAll();

    std::unique_ptr<Ui::CNoiseTest_SM_Dialog> m_ui;
};

} // namespace vireo
