#include "core/language/QuoteDeck.h"
#include "core/phone/PhonePairing.h"
#include "core/session/ActiveSession.h"
#include "core/session/AppSettings.h"
#include "core/session/Profile.h"
#include "core/session/SessionRecord.h"
#include "core/session/Thought.h"
#include "core/store/JSONStore.h"
#include "core/store/PosixFiles.h"
#include "tests/conformance/Operations.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmorin::conformance {

namespace {

/// What can be done with a stored type whose name comes with the request.
struct StoredType {
    /// The text read and written again; absent where it does not decode.
    std::optional<std::string> (*reencode)(const std::string& text);
    std::optional<std::string> (*load)(const JSONStore& store, const std::string& file);
    bool (*save)(const JSONStore& store, const std::string& file, const std::string& text);
};

template <class Value>
std::optional<std::string> encoded(const std::optional<Value>& value) {
    return value ? encodeJSON(*value) : std::nullopt;
}

template <class Value>
StoredType storedType() {
    return {
        [](const std::string& text) { return encoded(decodeJSON<Value>(text)); },
        [](const JSONStore& store, const std::string& file) { return encoded(store.load<Value>(file)); },
        [](const JSONStore& store, const std::string& file, const std::string& text) {
            const auto value = decodeJSON<Value>(text);
            return value && store.save(*value, file);
        },
    };
}

const StoredType& typeNamed(const std::string& name) {
    static const std::map<std::string, StoredType> types{
        {"Segment", storedType<Segment>()},
        {"PomodoroConfig", storedType<PomodoroConfig>()},
        {"DeepConfig", storedType<DeepConfig>()},
        {"AllowedApp", storedType<AllowedApp>()},
        {"Profile", storedType<Profile>()},
        {"[Profile]", storedType<std::vector<Profile>>()},
        {"ActiveSession", storedType<ActiveSession>()},
        {"SessionRecord", storedType<SessionRecord>()},
        {"[SessionRecord]", storedType<std::vector<SessionRecord>>()},
        {"Thought", storedType<Thought>()},
        {"[Thought]", storedType<std::vector<Thought>>()},
        {"AppSettings", storedType<AppSettings>()},
        {"QuoteDeck", storedType<QuoteDeck>()},
        {"PhonePairing", storedType<PhonePairing>()},
    };
    const auto found = types.find(name);
    if (found == types.end()) throw MalformedInput{"there is no stored type \"" + name + "\""};
    return found->second;
}

using Step = std::vector<std::string>;

/// Only what lies in the directory of the script may be touched.
void requireInside(const std::string& fileName) {
    const std::filesystem::path path{fileName};
    const bool goesUp = std::ranges::find(path, "..") != path.end();
    if (path.is_absolute() || goesUp) throw MalformedInput{"the file \"" + fileName + "\" is not in the directory"};
}

void runStep(const JSONStore& store, Files& files, const Step& step, JSONOutput& output) {
    const auto isCall = [&step](const char* name, std::size_t arguments) {
        return step.size() == arguments + 1 && step.front() == name;
    };
    if (step.size() > 1) requireInside(step[1]);
    if (isCall("save", 3)) {
        output.write(typeNamed(step[2]).save(store, step[1], step[3]));
    } else if (isCall("load", 2)) {
        writeOptional(output, typeNamed(step[2]).load(store, step[1]));
    } else if (isCall("append", 2)) {
        store.appendLine(step[2], step[1]);
        output.writeNull();
    } else if (isCall("remove", 1)) {
        store.remove(step[1]);
        output.writeNull();
    } else if (isCall("read", 1)) {
        writeOptional(output, files.read(store.directory() / step[1]));
    } else {
        throw MalformedInput{"a step is not one of save, load, append, remove and read with its arguments"};
    }
}

} // namespace

void addStoreOperations(Operations& operations) {
    operations["decode"] = [](const Request& request, JSONOutput& output) {
        writeOptional(output, typeNamed(request.get<std::string>("type")).reencode(request.get<std::string>("text")));
    };
    operations["JSONStore.script"] = [](const Request& request, JSONOutput& output) {
        const auto steps = request.get<std::vector<Step>>("steps");
        const TemporaryDirectory directory;
        PosixFiles files;
        const JSONStore store{directory.path(), files};
        output.beginArray();
        for (const auto& step : steps)
            runStep(store, files, step, output);
        output.endArray();
    };
}

} // namespace velmorin::conformance
