#pragma once

#include "viewers/adjustment/CAdjustment_Dialog.h"

namespace vireo {

/// The viewer of "[Vertical Camera Verification]" and "[Mirror Carriage Adjustment]" files.
class CVerticalCameraVerification_Dialog : public CAdjustment_Dialog {
    Q_OBJECT

public:
    /// Shows a file; an empty path shows an empty table.
    explicit CVerticalCameraVerification_Dialog(
        const std::filesystem::path& file, QWidget* parent = nullptr)
        : CAdjustment_Dialog(AdjustmentKind::VerticalCameraVerification, file, parent)
    {
    }
};

} // namespace vireo
