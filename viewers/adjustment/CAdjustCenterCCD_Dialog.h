#pragma once

#include "viewers/adjustment/CAdjustment_Dialog.h"

namespace vireo {

/// The viewer of "[Adjust Center CCD]" and "[Scan-Line Positioning]" files.
class CAdjustCenterCCD_Dialog : public CAdjustment_Dialog {
    Q_OBJECT

public:
    /// Shows a file; an empty path shows an empty table.
    explicit CAdjustCenterCCD_Dialog(const std::filesystem::path& file, QWidget* parent = nullptr)
        : CAdjustment_Dialog(AdjustmentKind::AdjustCenterCcd, file, parent)
    {
    }
};

} // namespace vireo
