// Any bytes in a file of the store either are no value, or a value that is saved and loaded unchanged.

#include "core/language/QuoteDeck.h"
#include "core/phone/PhonePairing.h"
#include "core/session/ActiveSession.h"
#include "core/session/AppSettings.h"
#include "core/session/Profile.h"
#include "core/session/SessionRecord.h"
#include "core/session/Thought.h"
#include "core/store/JSONStore.h"
#include "tests/support/MemoryFiles.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace velmorin {
namespace {

constexpr const char* fileName = "file.json";

template <class Value>
void tryAs(MemoryFiles& files) {
    const JSONStore store{"", files};
    const auto value = store.load<Value>(fileName);
    if (!value) return;
    // What a type reads must be a well-formed text to one who looks at nothing but the form.
    if (!JSONInput::read(files.contents[fileName], [](JSONInput& input) { return input.skip(); })) std::abort();
    if (!store.save(*value, fileName) || store.load<Value>(fileName) != value) std::abort();
    const std::string text = files.contents[fileName];
    if (!store.save(*store.load<Value>(fileName), fileName) || files.contents[fileName] != text) std::abort();
}

} // namespace
} // namespace velmorin

/// The first byte chooses the type, the others are the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    if (size == 0) return 0;
    MemoryFiles files;
    files.contents[fileName] = std::string{data + 1, data + size};
    switch (data[0] % 7) {
    case 0: tryAs<std::vector<Profile>>(files); break;
    case 1: tryAs<std::vector<Thought>>(files); break;
    case 2: tryAs<std::vector<SessionRecord>>(files); break;
    case 3: tryAs<AppSettings>(files); break;
    case 4: tryAs<QuoteDeck>(files); break;
    case 5: tryAs<PhonePairing>(files); break;
    default: tryAs<ActiveSession>(files); break;
    }
    return 0;
}
