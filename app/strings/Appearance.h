#pragma once

#include "app/seams/Observable.h"
#include "app/strings/AppStrings.h"
#include "core/language/AppLanguage.h"
#include "core/session/AppSettings.h"
#include "core/session/ColorTheme.h"

namespace velmorin {

/// The language and the colours that every screen follows. Main thread.
class Appearance {
public:
    /// Gives the texts of a language, those of this system.
    using Texts = const AppStrings& (*)(AppLanguage);

    explicit Appearance(Texts texts = &AppStrings::of) : m_texts{texts} {}

    /// The one object that the screens of the program share. Whoever can be handed an object takes that instead.
    static Appearance& shared();

    const Observable<AppLanguage>& language() const { return m_language; }
    const Observable<ColorTheme>& theme() const { return m_theme; }
    /// All texts of the present language.
    const AppStrings& strings() const { return m_texts(*m_language); }

    /// Takes language and theme over from the settings; what stays the same wakes nobody.
    void apply(const AppSettings& settings);

private:
    Texts m_texts;
    Observable<AppLanguage> m_language{AppLanguage::persian};
    Observable<ColorTheme> m_theme{ColorTheme::dusk};
};

} // namespace velmorin
