#include "app/platform/linux/applications/IdentityTable.h"

#include "app/platform/linux/applications/IdentityRows.h"
#include "core/foundation/Text.h"
#include "core/rules/AppPolicy.h"

#include <algorithm>
#include <unordered_map>

namespace velmorin::IdentityTable {

namespace {

/// A name as the table writes it: a blank becomes a hyphen, and a snap's only command goes by the snap's name.
std::string plain(std::string_view name) {
    std::string result = lowercased(name);
    std::ranges::replace(result, ' ', '-');
    const auto middle = result.size() / 2;
    if (result.size() % 2 == 1 && result[middle] == '_' && result.substr(0, middle) == result.substr(middle + 1))
        result.resize(middle);
    return result;
}

/// A program's name without what wrapped it: NixOS calls what it starts through a script ".NAME-wrapped".
std::string plainProgram(std::string_view program) {
    constexpr std::string_view suffix = "-wrapped";
    if (program.starts_with('.') && program.ends_with(suffix) && program.size() > 1 + suffix.size())
        program = program.substr(1, program.size() - 1 - suffix.size());
    return lowercased(program);
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> result;
    while (!text.empty()) {
        const auto end = std::min(text.find(' '), text.size());
        if (end > 0) result.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

struct Index {
    using Rows = std::unordered_map<std::string, const Row*>;

    Rows byName;
    Rows byProgram;
    Rows byBundleID; ///< exact, and with the parts of the system

    Index() {
        for (const auto rows : {productRows(), escapeHatchRows(), systemRows()}) {
            for (const auto& row : rows)
                add(row);
        }
    }

    void add(const Row& row) {
        byBundleID.emplace(row.bundleID, &row);
        for (const auto program : words(row.programs))
            byProgram.emplace(program, &row);
        if (row.kind == Kind::systemPart) return;
        byName.emplace(lowercased(row.bundleID), &row);
        for (const auto name : words(row.names))
            byName.emplace(name, &row);
    }
};

const Index& index() {
    static const Index result;
    return result;
}

const Row* find(const Index::Rows& rows, const std::string& key) {
    const auto found = rows.find(key);
    return found == rows.end() ? nullptr : found->second;
}

bool isOfKind(std::string_view bundleID, Kind kind) {
    const auto* row = find(index().byName, plain(bundleID));
    return row != nullptr && row->kind == kind;
}

} // namespace

std::string bundleID(std::string_view name) {
    if (const auto* row = find(index().byName, plain(name))) return std::string{row->bundleID};
    return isReserved(name) ? unconfirmed(name) : std::string{name};
}

std::string unconfirmed(std::string_view bundleID) {
    return "unconfirmed:" + std::string{bundleID};
}

std::optional<std::string_view> bundleIDOfProgram(std::string_view program, bool isOfSystem) {
    const auto* row = find(index().byProgram, plainProgram(program));
    if (row == nullptr || (row->kind == Kind::systemPart && !isOfSystem)) return std::nullopt;
    return row->bundleID;
}

bool isReserved(std::string_view bundleID) {
    return bundleID == ownBundleID || AppPolicy::isSystemExempt(bundleID);
}

std::vector<std::string_view> namesOf(std::string_view bundleID) {
    const auto* row = find(index().byBundleID, std::string{bundleID});
    auto names = row != nullptr ? words(row->names) : std::vector<std::string_view>{};
    if (std::ranges::find(names, bundleID) == names.end()) names.push_back(bundleID);
    return names;
}

bool isEscapeHatch(std::string_view bundleID) {
    return isOfKind(bundleID, Kind::escapeHatch);
}

bool isUnsupportedBrowser(std::string_view bundleID) {
    return isOfKind(bundleID, Kind::unsupportedBrowser);
}

} // namespace velmorin::IdentityTable
