#include "platform/HTEQDevice.h"

#include <vector>

#include "msg/HEXAll.h"
#include "text/FirstPieces.h"
#include "text/HSTStringUtils.h"

void HTEQDevice::setFpgaPart(const std::string& text) {
    fpgaPart_ = text;
    convertFpgaDeviceToPartData_(text);
}

std::string HTEQDevice::convertFpgaDeviceToPartData_(const std::string& text) {
    if (text.empty()) return {};
    constexpr std::size_t kMaxText = 4096;  // the device repeats it twice
    const std::string_view read = text.size() > kMaxText ? std::string_view() : text;
    const std::vector<std::string> fields = text::firstPieces(read, ':', 8);
    const std::size_t count = fields.size();
    if (count < 4 || count > 7)
        throw HEXAlgException(
            "HTEQDevice::convertFpgaDeviceToPart_ - FPGA Device (string) format not as expected: '" +
            HSTStringUtils::cut(text, kMaxText) + "'");
    partArch_ = fields[0];
    partDevice_ = fields[1];
    partPackage_ = fields[2];
    partSpeed_ = fields[3];
    // No separator between package and speed: the speed begins with a dash.
    partName_ = partDevice_ + (count > 4 ? "-" : "") + partPackage_ + partSpeed_;
    for (std::size_t i = 4; i < count; ++i) partName_ += "-" + fields[i];
    if (count > 4) partTempGrade_ = fields[4];
    if (count > 5) partRevision_ = fields.back();
    if (count > 6) partStaPower_ = fields[5];
    return partName_;
}
