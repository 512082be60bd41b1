#pragma once

#include <array>
#include <string_view>

/// The sentences in Persian, by moment. The lists of a moment are parallel in all languages: one index, one sentence.
namespace velmorin::Quotes {

extern const std::array<std::string_view, 90> urge;
extern const std::array<std::string_view, 40> returning;
extern const std::array<std::string_view, 30> rest;
extern const std::array<std::string_view, 20> exit;
extern const std::array<std::string_view, 20> finish;

} // namespace velmorin::Quotes
