#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// One step of a scenario as data. Its number, if it has one, stands apart so that it can be made simpler.
struct WalkStep {
    struct Number {
        std::string key;
        double value = 0;
        bool operator==(const Number&) const = default;
    };

    std::string action; ///< as in "advance"
    std::optional<Number> number;
    std::string details; ///< further members as they stand inside a JSON object, as in `"pid":11`

    /// The step as a line of a scenario.
    std::string line() const;

    bool operator==(const WalkStep&) const = default;
};

/// A scene and what happens on it.
struct Walk {
    std::string setup;                     ///< members of the scene besides its applications
    std::vector<std::string> applications; ///< one JSON object each
    std::vector<WalkStep> steps;

    /// The line that sets the scene.
    std::string firstLine() const;
    /// All lines, as velmorin-simulate reads them.
    std::string text() const;

    bool operator==(const Walk&) const = default;
};

} // namespace velmorin
