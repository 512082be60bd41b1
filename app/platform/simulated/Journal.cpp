#include "app/platform/simulated/Journal.h"

namespace velmorin {

std::string SimulatedEvent::line() const {
    JSONOutput output;
    output.beginObject();
    output.key("t");
    output.write(time);
    output.key("event");
    output.write(name);
    if (!details.empty()) output.writeJSON(details);
    output.endObject();
    return output.take().value_or("");
}

void Journal::tell(std::string_view name, const Details& details) const {
    if (!onEvent) return;
    JSONOutput output;
    output.beginObject();
    if (details) details(output);
    output.endObject();
    const std::string object = output.take().value_or("{}");
    onEvent({m_time(), std::string{name}, object.substr(1, object.size() - 2)});
}

} // namespace velmorin
