#include "app/shell/ProfileEditorModel.h"

#include "app/shell/Text.h"
#include "app/strings/AppWarnings.h"
#include "core/rules/DomainPolicy.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace velmorin {

namespace {

template <class Value>
void removeAt(std::vector<Value>& values, int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < values.size()) values.erase(values.begin() + index);
}

} // namespace

ProfileEditorModel::ProfileEditorModel(ShellContext& context, ProfileChoice& choice, QObject* parent)
    : QObject{parent}, m_context{context}, m_choice{choice} {
    for (const auto kind : {BrowserKind::chrome, BrowserKind::safari})
        m_browsers.push_back(new BrowserRow{kind, context, this});
    refresh();
}

const Profile& ProfileEditorModel::profile() const {
    static const Profile none;
    const auto* const chosen = m_choice.profile();
    return chosen == nullptr ? none : *chosen;
}

void ProfileEditorModel::refresh() {
    const auto shown = profile().id;
    if (m_shownID != shown) reset();
    m_shownID = shown;
    refreshBrowsers();
    for (auto* const browser : std::as_const(m_browsers))
        Q_EMIT browser->changed();
    if (m_picker != nullptr) m_picker->refresh();
    Q_EMIT nameChanged();
    Q_EMIT appsChanged();
    Q_EMIT sitesChanged();
    Q_EMIT siteProblemChanged();
}

void ProfileEditorModel::reset() {
    closePicker();
    setNewDomain({});
    setDomainError(false);
    for (auto* const browser : std::as_const(m_browsers))
        browser->reset();
}

void ProfileEditorModel::refreshBrowsers() {
    QList<BrowserRow*> allowed;
    std::ranges::copy_if(m_browsers, std::back_inserter(allowed), [this](const BrowserRow* browser) {
        return std::ranges::find(profile().allowedApps, bundleID(browser->kind()), &AllowedApp::bundleID) !=
               profile().allowedApps.end();
    });
    if (allowed == m_allowedBrowsers) return;
    m_allowedBrowsers = std::move(allowed);
    Q_EMIT browsersChanged();
}

QString ProfileEditorModel::name() const {
    return toQString(profile().name);
}

void ProfileEditorModel::setName(const QString& name) {
    m_choice.change([&name](Profile& profile) { profile.name = name.toStdString(); });
}

QString ProfileEditorModel::removal(std::string_view item) const {
    return toQString(m_context.appearance.strings().removeItem(item));
}

QStringList ProfileEditorModel::appNames() const {
    QStringList names;
    for (const auto& app : profile().allowedApps)
        names.push_back(toQString(app.name));
    return names;
}

QStringList ProfileEditorModel::appRemovals() const {
    QStringList removals;
    for (const auto& app : profile().allowedApps)
        removals.push_back(removal(app.name));
    return removals;
}

QStringList ProfileEditorModel::warnings() const {
    QStringList texts;
    for (const auto& warning : appWarnings(profile(), m_context.appearance.strings(), m_context.cautions))
        texts.push_back(toQString(warning));
    return texts;
}

QStringList ProfileEditorModel::sites() const {
    QStringList sites;
    for (const auto& domain : profile().allowedDomains)
        sites.push_back(toQString(domain));
    return sites;
}

QStringList ProfileEditorModel::siteRemovals() const {
    QStringList removals;
    for (const auto& domain : profile().allowedDomains)
        removals.push_back(removal(domain));
    return removals;
}

void ProfileEditorModel::removeApp(int index) {
    m_choice.change([index](Profile& profile) { removeAt(profile.allowedApps, index); });
}

void ProfileEditorModel::removeSite(int index) {
    m_choice.change([index](Profile& profile) { removeAt(profile.allowedDomains, index); });
}

void ProfileEditorModel::setNewDomain(const QString& text) {
    if (text == m_newDomain) return;
    m_newDomain = text;
    Q_EMIT newDomainChanged();
}

void ProfileEditorModel::addDomain() {
    const auto domain = DomainPolicy::normalize(m_newDomain.toStdString());
    if (!domain) {
        setDomainError(!m_newDomain.isEmpty());
        return;
    }
    m_choice.change([&domain](Profile& profile) {
        auto& domains = profile.allowedDomains;
        if (std::ranges::find(domains, *domain) == domains.end()) domains.push_back(*domain);
    });
    setNewDomain({});
    setDomainError(false);
}

void ProfileEditorModel::setDomainError(bool isError) {
    m_isDomainWrong = isError;
    Q_EMIT siteProblemChanged();
}

QString ProfileEditorModel::siteProblem() const {
    const auto& strings = m_context.appearance.strings();
    if (m_isDomainWrong) return toQString(strings.badDomain);
    return hasBrowser() && profile().allowedDomains.empty() ? toQString(strings.browserWithoutSites) : QString{};
}

void ProfileEditorModel::openPicker() {
    if (m_picker != nullptr || m_choice.profile() == nullptr) return;
    m_picker = new AppPickerModel{m_context, m_choice, this};
    Q_EMIT pickerChanged();
}

void ProfileEditorModel::closePicker() {
    if (m_picker == nullptr) return;
    std::exchange(m_picker, nullptr)->deleteLater();
    Q_EMIT pickerChanged();
}

} // namespace velmorin
