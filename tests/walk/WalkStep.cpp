#include "tests/walk/WalkStep.h"

#include "core/foundation/JSONOutput.h"

namespace velmorin {

std::string WalkStep::line() const {
    JSONOutput output;
    output.beginObject();
    output.key("do");
    output.write(action);
    if (number) {
        output.key(number->key);
        output.write(number->value);
    }
    if (!details.empty()) output.writeJSON(details);
    output.endObject();
    return output.take().value_or("");
}

std::string Walk::firstLine() const {
    std::string list;
    for (const auto& application : applications)
        list += (list.empty() ? "" : ",") + application;
    return "{\"setup\":{" + setup + (setup.empty() ? "" : ",") + "\"applications\":[" + list + "]}}";
}

std::string Walk::text() const {
    std::string text = firstLine() + "\n";
    for (const auto& step : steps)
        text += step.line() + "\n";
    return text;
}

} // namespace velmorin
