#include "viewers/lightprofile/LightProfileText.h"

#include "platform/Text.h"
#include "testfile/HeaderNames.h"
#include "viewers/controls/ProfileText.h"
#include "viewers/lightprofile/LightProfileData.h"

namespace vireo {

std::vector<std::string> LightProfileHeaderLines(
    const LightProfileData& data, ShownColour shown, std::int64_t line)
{
    const LightProfileRecord& record = data.Record();
    std::vector<std::string> lines{"Light Profile"};
    const auto add = [&lines](const char* label, const std::string& value) {
        if (!value.empty())
            lines.push_back(LabelledLine(label, value));
    };
    add("Scanner Name:", record.scannerName);
    add("Scanner ID:", record.scannerID);
    add("Date:", record.date);
    add("Time:", record.time);
    add("Color:", std::string(ColourName(shown)));
    add("Profile:", LightProfileKindText(data));
    if (data.Lines().LineCount() > 1)
        add("Line:",
            Format("%lld ", static_cast<long long>(line + 1))
                + LineCountText(data.Lines().LineCount()));
    return lines;
}

std::string LightProfileKindText(const LightProfileData& data)
{
    std::string text = data.Record().isSigned32 ? "Signed 32-bit" : "8-bit";
    if (data.HeaderText().find(key::kCorrected) != std::string::npos)
        text += data.Record().corrected ? ", corrected" : ", uncorrected";
    return text;
}

std::vector<int> CamerasToChoose(const ProfileCameras& cameras)
{
    std::vector<int> offered;
    for (int camera = 0; camera < ProfileCameras::kCameras; ++camera)
        if (cameras.pixels[static_cast<std::size_t>(camera)] >= ProfileCameras::kFewestPixels)
            offered.push_back(camera);
    return offered;
}

} // namespace vireo
