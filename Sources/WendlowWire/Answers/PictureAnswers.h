#pragma once

#include <map>
#include <string>
#include <vector>

#include "Described.h"
#include "Records/ScreenImage.h"
#include "WireData.h"

namespace wendlow {

/// Pictures.
namespace AnswerCase {

/// One picture; its bytes stay base64 text.
struct Image {
    std::string base64;
    std::string mimeType;
    WENDLOW_CASE(Image, "image", base64, mimeType);
};

struct Images {
    std::vector<ScreenImage> _0;
    WENDLOW_CASE(Images, "images", _0);
};

struct Icons {
    std::map<std::string, WireData> _0; ///< by host
    WENDLOW_CASE(Icons, "icons", _0);
};

} // namespace AnswerCase
} // namespace wendlow
