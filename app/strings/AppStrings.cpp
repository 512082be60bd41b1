#include "app/strings/AppStrings.h"

namespace velmorin {

const AppStrings& AppStrings::of(AppLanguage language) {
    switch (language) {
    case AppLanguage::persian: return persian;
    case AppLanguage::english: return english;
    case AppLanguage::german: break;
    }
    return german;
}

} // namespace velmorin
