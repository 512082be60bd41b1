#pragma once

#include "app/seams/Observable.h"
#include "app/strings/AppStrings.h"
#include "core/language/AppLanguage.h"
#include "core/session/AppSettings.h"
#include "core/session/ColorTheme.h"

namespace velmorin {

/// The language, the colours and the wish for stillness that every screen follows. Main thread.
class Appearance {
public:
    /// Gives the texts of a language, those of this system.
    using Texts = const AppStrings& (*)(AppLanguage);

    explicit Appearance(Texts texts = &AppStrings::of) : m_texts{texts} {}

    /// The one object that the screens of the program share. Whoever can be handed an object takes that instead.
    static Appearance& shared();

    const Observable<AppLanguage>& language() const { return m_language; }
    const Observable<ColorTheme>& theme() const { return m_theme; }
    /// Whether nothing on screen is to move but what time itself moves.
    const Observable<bool>& reducesMotion() const { return m_reducesMotion; }
    /// All texts of the present language.
    const AppStrings& strings() const { return m_texts(*m_language); }

    /// Gives the texts of another system from now on. To be called before anything is shown.
    void setTexts(Texts texts) { m_texts = texts; }
    /// Takes language and theme over from the settings; what stays the same wakes nobody.
    void apply(const AppSettings& settings);
    /// What the desktop says of its user's wish.
    void setReducesMotion(bool reduces) { m_reducesMotion.set(reduces); }

private:
    Texts m_texts;
    Observable<AppLanguage> m_language{AppLanguage::persian};
    Observable<ColorTheme> m_theme{ColorTheme::dusk};
    Observable<bool> m_reducesMotion{false};
};

} // namespace velmorin
