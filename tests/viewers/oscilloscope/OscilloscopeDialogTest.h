#pragma once

#include "app/UnpackBeside.h"
#include "tests/viewers/DialogTest.h"
#include "tests/viewers/oscilloscope/OscilloscopeFile.h"
#include "viewers/controls/CLPFControle.h"
#include "viewers/controls/ViewerHost.h"
#include "viewers/oscilloscope/COscilloscope_Dialog.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vireo {

/// Notes what it is asked to open; dumps it unpacks as the program does.
class HostRecorder : public ViewerHost {
public:
    bool OpenViewer(
        std::string_view viewer, const std::filesystem::path& file, QWidget* parent) override
    {
        m_opened.push_back(std::string(viewer) + " " + file.filename().string());
        m_bParentWasHidden = !parent || !parent->isVisible();
        return true;
    }
    bool OpenPicture(const MarkedPicture&, QWidget*) override { return false; }
    bool UnpackDump(const std::filesystem::path& dump, QWidget* parent) override
    {
        m_bParentWasHidden = !parent || !parent->isVisible();
        return UnpackBeside(dump, parent);
    }

    std::vector<std::string> m_opened;
    bool m_bParentWasHidden = false;
};

class COscilloscope_DialogTest : public DialogTest<COscilloscope_Dialog> {
protected:
    /// Opens the dialog as the program does, but without waiting for its end; false when it closed
    /// by itself at once.
    bool Open(const std::filesystem::path& path, bool isFolder = false)
    {
        dialog = std::make_unique<COscilloscope_Dialog>(path, isFolder, host);
        if (dialog->HasHandedOver())
            return false;
        Show(std::move(dialog), {1100, 700});
        return true;
    }
    bool Open(const OscilloscopeFile& file) { return Open(folder.Write("a.con", file.Bytes())); }

    /// Where the focus is.
    void PressKey(Qt::Key key) const { QTest::keyClick(dialog->focusWidget(), key); }

    CLPFControle& Plot(const char* name) const { return Find<CLPFControle>(name); }
    const ProfilePlotContent& Overview() const { return Plot("overviewPlot").Content(); }
    std::string Title(const char* plot) const { return Plot(plot).Content().scene.title; }

    /// Letters of the cameras that can be chosen.
    std::string OfferedCameras() const
    {
        std::string letters;
        for (char letter = 'A'; letter <= 'H'; ++letter) {
            const std::string name = std::string("camera") + letter + "Button";
            if (IsVisible(name.c_str()))
                letters += letter;
        }
        return letters;
    }

    HostRecorder host;
};

} // namespace vireo
