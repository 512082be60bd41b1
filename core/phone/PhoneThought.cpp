#include "core/phone/PhoneThought.h"

#include "core/foundation/JSONOutput.h"
#include "core/foundation/Text.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

std::optional<Date> dateMember(const JSONMembers& object, const char* key) {
    const auto seconds = object.get<double>(key);
    return seconds ? std::optional{Date::fromSecondsSince1970(*seconds)} : std::nullopt;
}

Thought thoughtOf(const PhoneThought& message, const UUID& id) {
    Thought thought{message.text, message.createdAt, id};
    thought.done = message.done;
    thought.updatedAt = message.updatedAt;
    return thought;
}

} // namespace

PhoneThought::PhoneThought(std::string_view thoughtID, std::string words, Date created, Date updated, bool isDone,
                           bool isDeleted)
    : id{lowercased(thoughtID)},
      text{std::move(words)},
      createdAt{created},
      updatedAt{updated},
      done{isDone},
      deleted{isDeleted} {}

std::optional<PhoneThought> PhoneThought::fromObject(const JSONMembers& object) {
    const auto id = object.get<std::string>("id");
    const auto text = object.get<std::string>("text");
    const auto createdAt = dateMember(object, "createdAt");
    const auto updatedAt = dateMember(object, "updatedAt");
    if (object.get<std::string>("type") != "thought" || !id || !text || !createdAt || !updatedAt) return std::nullopt;
    return PhoneThought{*id,
                        *text,
                        *createdAt,
                        *updatedAt,
                        object.get<bool>("done").value_or(false),
                        object.get<bool>("deleted").value_or(false)};
}

std::optional<std::string> PhoneThought::encoded() const {
    JSONOutput output;
    output.beginObject();
    output.key("createdAt");
    output.write(createdAt.secondsSince1970());
    output.key("deleted");
    output.write(deleted);
    output.key("done");
    output.write(done);
    output.key("id");
    output.write(id);
    output.key("text");
    output.write(text);
    output.key("type");
    output.write("thought");
    output.key("updatedAt");
    output.write(updatedAt.secondsSince1970());
    output.key("v");
    output.write(std::int64_t{1});
    output.endObject();
    return output.take();
}

PhoneThought message(const Thought& thought, Date changedAt, bool deleted) {
    return {thought.id.text(), thought.text, thought.createdAt, changedAt, thought.done, deleted};
}

std::optional<std::vector<Thought>> merging(const PhoneThought& message, std::vector<Thought> thoughts) {
    const auto id = UUID::parse(message.id);
    if (!id) return std::nullopt;
    const auto known = std::ranges::find(thoughts, *id, &Thought::id);
    const bool isKnown = known != thoughts.end();
    if (isKnown && known->changedAt() > message.updatedAt) return std::nullopt;
    if (message.deleted) {
        if (!isKnown) return std::nullopt;
        thoughts.erase(known);
        return thoughts;
    }
    if (isKnown) {
        *known = thoughtOf(message, *id);
        return thoughts;
    }
    thoughts.push_back(thoughtOf(message, *id));
    std::ranges::stable_sort(thoughts, std::ranges::greater{},
                             [](const Thought& thought) { return thought.createdAt.secondsSince2001; });
    return thoughts;
}

} // namespace velmorin
