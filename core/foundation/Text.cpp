#include "core/foundation/Text.h"

#include <simdjson.h>

namespace velmorin {

bool isUTF8(std::string_view text) {
    return simdjson::validate_utf8(text);
}

} // namespace velmorin
