#include "app/shell/BrowserRow.h"

#include "app/shell/Text.h"
#include "app/strings/PlatformStrings.h"
#include "core/language/Formatting.h"

#include <QClipboard>
#include <QGuiApplication>
#include <utility>
#include <variant>

namespace velmorin {

BrowserRow::BrowserRow(BrowserKind kind, ShellContext& context, QObject* parent)
    : QObject{parent}, m_kind{kind}, m_context{context} {}

QString BrowserRow::checkText() const {
    return toQString(m_context.appearance.strings().checkPermission(displayName(m_kind)));
}

QString BrowserRow::message() const {
    return m_message == nullptr ? QString{} : toQString(m_context.appearance.strings().*m_message);
}

QString BrowserRow::setUpText() const {
    if (m_context.browserSetup == nullptr) return {};
    return toQString(PlatformStrings::of(*m_context.appearance.language()).setUpBrowser(displayName(m_kind)));
}

QStringList BrowserRow::steps() const {
    if (!m_isBeingSetUp) return {};
    const auto language = *m_context.appearance.language();
    const auto& strings = PlatformStrings::of(language);
    if (!m_isIntroduced) return {toQString(strings.notIntroduced)};
    QStringList lines;
    const auto add = [&](std::string_view line) {
        lines.push_back(toQString(number(language, lines.size() + 1) + ". ").append(toQString(line)));
    };
    add(strings.openPage(m_context.browserSetup->pageAddress(m_kind)));
    add(strings.switchOnDeveloperMode);
    add(strings.loadFolder(m_context.browserSetup->folder(m_kind)));
    add(strings.allowInPrivateWindows);
    add(strings.checkAfterwards);
    return lines;
}

QString BrowserRow::copyAddressText() const {
    return toQString(PlatformStrings::of(*m_context.appearance.language()).copyAddress);
}

QString BrowserRow::copyFolderText() const {
    return toQString(PlatformStrings::of(*m_context.appearance.language()).copyFolder);
}

void BrowserRow::check() {
    show(&AppStrings::permissionChecking);
    m_context.controller.browserMonitor().requestPermission(
        m_kind, m_lifetime->guard([this](const BrowserResult& result) {
            if (std::holds_alternative<BrowserAnswer::Tabs>(result))
                show(&AppStrings::permissionGranted);
            else if (std::holds_alternative<BrowserAnswer::Denied>(result))
                show(&AppStrings::permissionDenied);
            else
                show(&AppStrings::permissionNoAnswer);
        }));
}

void BrowserRow::setUp() {
    if (m_context.browserSetup == nullptr) return;
    m_isBeingSetUp = true;
    m_isIntroduced = m_context.browserSetup->introduce(m_kind);
    if (m_isIntroduced) {
        copyAddress();
        if (const auto location = m_context.workspace.locate(bundleID(m_kind)))
            m_context.workspace.open(*location, Workspace::Opening::activating);
    }
    Q_EMIT changed();
}

void BrowserRow::copyAddress() {
    if (m_context.browserSetup == nullptr) return;
    QGuiApplication::clipboard()->setText(toQString(m_context.browserSetup->pageAddress(m_kind)));
}

void BrowserRow::copyFolder() {
    if (m_context.browserSetup == nullptr) return;
    QGuiApplication::clipboard()->setText(toQString(m_context.browserSetup->folder(m_kind)));
}

void BrowserRow::reset() {
    m_message = nullptr;
    m_isBeingSetUp = false;
    m_isIntroduced = true;
    m_lifetime.emplace();
    Q_EMIT changed();
}

void BrowserRow::show(Message message) {
    m_message = message;
    Q_EMIT changed();
}

} // namespace velmorin
