#pragma once

#include "core/language/AppLanguage.h"

#include <string_view>
#include <vector>

namespace velmorin {

/// Texts of a picture, which differ by language.
struct PictureTexts {
    std::string_view goal;
    std::string_view longGoal; ///< 300 characters
    std::string_view reason;
    std::vector<std::string_view> thoughts; ///< in the order in which they are kept
};

/// Those of a language.
const PictureTexts& pictureTexts(AppLanguage language);

} // namespace velmorin
