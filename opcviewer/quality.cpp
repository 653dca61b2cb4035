// SPDX-License-Identifier: MIT
#include "opcviewer/quality.h"

namespace velt {

std::string DescrizioneQualita(std::int32_t quality) {
    switch (quality) {
        case 0: return "Bad";
        case 4: return "Config Error";
        case 8: return "Not Connected";
        case 12: return "Device Failure";
        case 16: return "Sensor Failure";
        case 20: return "Last Known";
        case 24: return "Comm Failure";
        case 28: return "Out of Service";
        case 32: return "Waiting Initial Data";
        case 64: return "Uncertain";
        case 68: return "Last Usable";
        case 80: return "Sensor Cal";
        case 84: return "EGU Exceeded";
        case 88: return "Sub Normal";
        case 192: return GoodQualityText;
        case 216: return "Local Override";
        default: return "Quality N° " + std::to_string(quality);
    }
}

}  // namespace velt
