#pragma once

#include "scanner/LineAcquisition.h"
#include "tests/scanner/TestScanners.h"
#include "tests/scanner/WatchedScanner.h"
#include "tests/viewers/DialogTest.h"

#include <memory>

namespace vireo {

/// What the tests of the live dialogs have in common: a simulated scanner that the test can make
/// fail, and the hands of a person.
template <typename Dialog = QDialog>
class LiveDialogTest : public DialogTest<Dialog> {
protected:
    LiveDialogTest() { setup.linesPerSecond = 400.0; }

    OpenScanner Scanner()
    {
        OpenScanner opened;
        EXPECT_FALSE(OpenDevice(std::make_unique<WatchedScanner>(watch, setup), opened));
        return opened;
    }

    /// Saves under a name in the file dialog that comes.
    void SaveAs(const std::filesystem::path& file)
    {
        NameInNextFileDialog(file);
        this->Click("saveButton");
    }

    Watch watch;
    SimulatedSetup setup;
};

} // namespace vireo
