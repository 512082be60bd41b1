#include "core/phone/PhoneCommand.h"

#include "core/foundation/JSONOutput.h"
#include "core/foundation/RawValue.h"

namespace velmorin::PhoneCommand {

namespace {

void writeTail(JSONOutput& output, const char* type) {
    output.key("type");
    output.write(type);
    output.key("v");
    output.write(std::int64_t{1});
}

void writeSegments(JSONOutput& output, const std::vector<Segment>& segments) {
    output.beginArray();
    for (const auto& segment : segments) {
        output.beginObject();
        output.key("kind");
        output.write(rawValue(segment.kind));
        output.key("seconds");
        output.write(segment.duration);
        output.endObject();
    }
    output.endArray();
}

void write(JSONOutput& output, const Start& start) {
    output.key("id");
    output.write(start.id.text());
    output.key("segments");
    writeSegments(output, start.segments);
    output.key("seq");
    output.write(start.sequence);
    output.key("startedAt");
    output.write(start.startedAt.secondsSince1970());
    writeTail(output, "start");
}

void write(JSONOutput& output, const End& end) {
    output.key("id");
    output.write(end.id.text());
    output.key("seq");
    output.write(end.sequence);
    writeTail(output, "end");
}

} // namespace

std::optional<std::string> encoded(const Command& command) {
    JSONOutput output;
    output.beginObject();
    std::visit([&output](const auto& payload) { write(output, payload); }, command);
    output.endObject();
    return output.take();
}

} // namespace velmorin::PhoneCommand
