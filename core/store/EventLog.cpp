#include "core/store/EventLog.h"

namespace velmorin::EventLog {

void rotateIfLarge(const JSONStore& store) {
    store.removeIfLarger(fileName, maximumBytes);
}

void log(const JSONStore& store, Date now, std::string_view message) {
    store.appendLine(iso8601(now) + " " + std::string{message}, fileName);
}

} // namespace velmorin::EventLog
