#include "app/platform/linux/applications/ApplicationIdentities.h"

#include "app/platform/linux/applications/CommandLine.h"
#include "app/platform/linux/applications/ControlGroup.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "app/platform/linux/browsers/KnownBrowsers.h"
#include "core/foundation/Text.h"
#include "core/rules/BrowserKind.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <unistd.h>

namespace velmorin {

namespace {

/// The snap whose files hold a program: /snap/NAME/REVISION/….
std::string_view snapOf(std::string_view program) {
    for (const std::string_view root : {"/snap/", "/var/lib/snapd/snap/"}) {
        if (program.starts_with(root)) return program.substr(root.size(), program.find('/', root.size()) - root.size());
    }
    return {};
}

/// Whether an entry's program can hand over to another one in the same process, or cannot be told at all.
bool handsOver(const DesktopEntry& entry) {
    if (entry.program.empty()) return true;
    std::ifstream file{entry.program, std::ios::binary};
    return file.get() == '#' && file.get() == '!';
}

/// Whether a process is one that answers for a browser when its tabs are asked for.
bool runsBrowser(const ProcessFacts& process, std::string_view bundleID) {
    const auto* const browser = process.isScript ? nullptr : browserOfExecutable(process.program);
    return browser != nullptr && browser->identity == bundleID;
}

std::string idOf(const DesktopEntry& entry) {
    return IdentityTable::bundleID(entry.id);
}

} // namespace

ApplicationIdentity ApplicationIdentities::identify(const WindowFacts& window) const {
    if (window.processID == ::getpid()) return own();
    const auto process = window.processID ? m_processes.facts(*window.processID) : std::nullopt;
    const auto found = find(window, process.value_or(ProcessFacts{}));
    ApplicationIdentity identity;
    if (!window.className.empty()) identity.name = window.className;
    if (!found) return identity;
    identity.bundleID = found->bundleID;
    if (found->entry != nullptr) {
        identity.name = found->entry->name;
        identity.desktopFile = found->entry->path;
    }
    return identity;
}

ApplicationIdentity ApplicationIdentities::own() const {
    const std::string id{IdentityTable::ownBundleID};
    const auto* entry = m_entries.withID(id);
    if (entry == nullptr) return {id, std::nullopt, std::nullopt};
    return {id, entry->name, entry->path};
}

std::string ApplicationIdentities::bundleID(const DesktopEntry& entry) {
    // An entry cannot tell who may write to its program; what is not the system's will be named when it runs.
    const auto known = IdentityTable::bundleIDOfProgram(CommandLine::fileName(entry.program), true);
    return known ? std::string{*known} : idOf(entry);
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::find(const WindowFacts& window,
                                                                          const ProcessFacts& process) const {
    auto found = findAnything(window, process);
    // What is asked for its tabs is found by its executable. Anything else under its identifier would go unwatched.
    if (found && browserKind(found->bundleID) && !runsBrowser(process, found->bundleID))
        found->bundleID = IdentityTable::unconfirmed(found->bundleID);
    return found;
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::findAnything(const WindowFacts& window,
                                                                                  const ProcessFacts& process) const {
    if (auto found = bySandbox(process)) return found;
    if (auto found = byKnownProgram(window, process)) return found;
    if (auto found = byWindowClass(window, process)) return found;
    if (auto found = byEntryOfProgram(process)) return found;
    if (auto found = byControlGroup(process)) return found;
    return byNameAlone(window, process);
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::bySandbox(const ProcessFacts& process) const {
    const auto named = [this](const std::string& id) {
        return Finding{IdentityTable::bundleID(id), m_entries.withID(id)};
    };
    if (process.flatpakID) return named(*process.flatpakID);
    if (const auto name = snapOf(process.program); !name.empty()) {
        const auto snap = ControlGroup::snap(process.controlGroup);
        const bool isTold = snap && snap->name == name;
        return named(std::string{name} + "_" + (isTold ? snap->command : std::string{name}));
    }
    // A group's name is a claim: it counts where the program says nothing to the contrary.
    const auto id = process.program.empty() ? ControlGroup::flatpak(process.controlGroup) : std::nullopt;
    return id ? std::optional{named(*id)} : std::nullopt;
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::byKnownProgram(const WindowFacts& window,
                                                                                    const ProcessFacts& process) const {
    const auto known = IdentityTable::bundleIDOfProgram(CommandLine::fileName(process.program), process.isOfSystem);
    if (!known) return std::nullopt;
    Finding finding{std::string{*known}, nullptr};
    auto candidates = claimed(window);
    std::ranges::copy(m_entries.running(process.program), std::back_inserter(candidates));
    for (const auto name : IdentityTable::namesOf(*known))
        candidates.push_back(m_entries.withID(name));
    // Of several entries for one product, the one that calls itself so.
    const auto names = IdentityTable::namesOf(*known);
    const auto isNamed = [&names](const auto* entry) {
        return entry != nullptr && std::ranges::find(names, lowercased(entry->id)) != names.end();
    };
    const auto found = std::ranges::find_if(candidates, isNamed);
    if (found != candidates.end()) finding.entry = *found;
    return finding;
}

ApplicationIdentities::Candidates ApplicationIdentities::claimed(const WindowFacts& window) const {
    Candidates candidates;
    const auto add = [&](const DesktopEntry* entry) {
        if (entry != nullptr) candidates.push_back(entry);
    };
    if (!window.instance.empty()) add(m_entries.withWindowClass(window.instance));
    if (!window.className.empty()) add(m_entries.withWindowClass(window.className));
    for (const auto& name : {window.className, window.instance}) {
        if (name.empty()) continue;
        add(m_entries.withID(name));
        add(m_entries.withID(IdentityTable::bundleID(name)));
    }
    return candidates;
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::byWindowClass(const WindowFacts& window,
                                                                                   const ProcessFacts& process) const {
    for (const auto* entry : claimed(window)) {
        if (!isOfOther(process, *entry)) return Finding{idOf(*entry), entry};
    }
    return std::nullopt;
}

bool ApplicationIdentities::isOfOther(const ProcessFacts& process, const DesktopEntry& entry) const {
    const auto& owners = m_entries.running(process.program);
    if (owners.empty() || entry.program == process.program) return false;
    const auto id = idOf(entry);
    if (std::ranges::find(owners, id, [](const auto* owner) { return idOf(*owner); }) != owners.end()) return false;
    return !handsOver(entry);
}

std::optional<ApplicationIdentities::Finding>
ApplicationIdentities::byEntryOfProgram(const ProcessFacts& process) const {
    const auto& owners = m_entries.running(process.program);
    if (owners.empty()) return std::nullopt;
    return Finding{idOf(*owners.front()), owners.front()};
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::byControlGroup(const ProcessFacts& process) const {
    for (const auto& id : ControlGroup::applications(process.controlGroup)) {
        const auto* entry = m_entries.withID(id);
        // Whatever an application starts stays in its group. So it counts only for one that does not run as itself.
        if (entry != nullptr && handsOver(*entry) && !IdentityTable::isEscapeHatch(idOf(*entry)))
            return Finding{idOf(*entry), entry};
    }
    return std::nullopt;
}

std::optional<ApplicationIdentities::Finding> ApplicationIdentities::byNameAlone(const WindowFacts& window,
                                                                                 const ProcessFacts& process) const {
    const auto program = std::string{CommandLine::fileName(process.program)};
    for (const auto& name : {window.className, window.instance, program, process.shortName}) {
        if (!name.empty()) return Finding{IdentityTable::bundleID(lowercased(name)), nullptr};
    }
    return std::nullopt;
}

} // namespace velmorin
