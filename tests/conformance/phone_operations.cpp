#include "app/phone/RelayLine.h"
#include "core/phone/PhoneCommand.h"
#include "core/phone/PhonePairing.h"
#include "core/phone/PhoneStatus.h"
#include "core/phone/PhoneThought.h"
#include "core/phone/PhoneWire.h"
#include "tests/conformance/Operations.h"

#include <string>
#include <variant>
#include <vector>

namespace velmorin {

// What travels has a form of its own; here it is described for requests and answers.

constexpr auto fields(std::type_identity<PhoneThought>) {
    return std::tuple{
        field("id", &PhoneThought::id),
        field("text", &PhoneThought::text),
        field("createdAt", &PhoneThought::createdAt),
        field("updatedAt", &PhoneThought::updatedAt),
        field("done", &PhoneThought::done),
        field("deleted", &PhoneThought::deleted),
    };
}

constexpr auto fields(std::type_identity<RelayLine>) {
    return std::tuple{field("id", &RelayLine::id), field("text", &RelayLine::text)};
}

namespace conformance {

namespace {

void writeCase(JSONOutput& output, const char* name) {
    output.key("case");
    output.write(name);
}

void writeSession(JSONOutput& output, const char* name, const UUID& id) {
    writeCase(output, name);
    output.key("id");
    encode(output, id);
}

struct StatusWriter {
    JSONOutput& output;

    void operator()(const PhoneStatus::Locked& locked) const { writeSession(output, "locked", locked.id); }
    void operator()(const PhoneStatus::Released& released) const { writeSession(output, "released", released.id); }
    void operator()(const PhoneStatus::NotReady& notReady) const { writeSession(output, "notReady", notReady.id); }
    void operator()(const PhoneStatus::Hello&) const { writeCase(output, "hello"); }
    void operator()(const PhoneThought& thought) const {
        writeCase(output, "thought");
        output.key("thought");
        encode(output, thought);
    }
};

/// A message as a request gives it: its identifier goes through the initialiser.
PhoneThought thoughtIn(const Request& request, const char* argument) {
    const auto given = request.get<PhoneThought>(argument);
    return {given.id, given.text, given.createdAt, given.updatedAt, given.done, given.deleted};
}

void addWire(Operations& operations) {
    operations["PhonePairing.texts"] = [](const Request& request, JSONOutput& output) {
        const PhonePairing pairing{request.get<Bytes>("id"), request.get<Bytes>("key")};
        output.beginObject();
        output.key("uri");
        output.write(pairing.uri());
        output.key("commandTopic");
        output.write(pairing.commandTopic());
        output.key("statusTopic");
        output.write(pairing.statusTopic());
        output.endObject();
    };
    operations["PhoneWire.base64URL"] = [](const Request& request, JSONOutput& output) {
        output.write(PhoneWire::base64URL(request.get<Bytes>("bytes")));
    };
    operations["PhoneWire.data"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, PhoneWire::data(request.get<std::string>("text")));
    };
    operations["PhoneWire.seal"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, PhoneWire::seal(request.get<Bytes>("plaintext"), request.get<Bytes>("key"),
                                              request.get<std::string>("direction"), request.find<Bytes>("nonce")));
    };
    operations["PhoneWire.open"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, PhoneWire::open(request.get<std::string>("sealed"), request.get<Bytes>("key"),
                                              request.get<std::string>("direction")));
    };
    operations["RelayLine.parse"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, RelayLine::parse(request.get<std::string>("line")));
    };
}

void addMessages(Operations& operations) {
    operations["PhoneCommand.start"] = [](const Request& request, JSONOutput& output) {
        PhoneCommand::Start start;
        start.id = request.get<UUID>("id");
        start.startedAt = request.get<Date>("startedAt");
        start.segments = request.get<std::vector<Segment>>("segments");
        start.sequence = request.get<std::int64_t>("sequence");
        writeOptional(output, PhoneCommand::encoded(start));
    };
    operations["PhoneCommand.end"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, PhoneCommand::encoded(
                                  PhoneCommand::End{request.get<UUID>("id"), request.get<std::int64_t>("sequence")}));
    };
    operations["PhoneStatus.decode"] = [](const Request& request, JSONOutput& output) {
        const auto status = PhoneStatus::decode(request.get<std::string>("text"));
        if (!status) {
            output.writeNull();
            return;
        }
        output.beginObject();
        std::visit(StatusWriter{output}, *status);
        output.endObject();
    };
    operations["PhoneThought.encoded"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, thoughtIn(request, "thought").encoded());
    };
    operations["Thought.message"] = [](const Request& request, JSONOutput& output) {
        encode(output,
               message(request.get<Thought>("thought"), request.get<Date>("changedAt"), request.get<bool>("deleted")));
    };
    operations["Thought.merging"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, merging(thoughtIn(request, "message"), request.get<std::vector<Thought>>("thoughts")));
    };
}

} // namespace

void addPhoneOperations(Operations& operations) {
    addWire(operations);
    addMessages(operations);
}

} // namespace conformance

} // namespace velmorin
