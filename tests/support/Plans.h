#pragma once

#include "core/foundation/NumberText.h"
#include "core/session/Segment.h"

#include <span>
#include <string>

namespace velmorin {

/// A plan in short, as in "W25 S5 W25 L15": W work, S short, L long, B locked break, each with its minutes.
inline std::string text(std::span<const Segment> plan) {
    std::string text;
    for (const auto& segment : plan) {
        if (!text.empty()) text += ' ';
        text += "WSLB"[static_cast<std::size_t>(segment.kind)];
        NumberBuffer buffer;
        text += numberText(segment.duration / 60.0, buffer);
    }
    return text;
}

} // namespace velmorin
