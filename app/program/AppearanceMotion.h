#pragma once

#include "app/seams/MotionPreference.h"
#include "app/strings/Appearance.h"

namespace velmorin {

/// The wish for stillness as the screens have it. Main thread.
class AppearanceMotion final : public MotionPreference {
public:
    /// `appearance` must outlive this.
    explicit AppearanceMotion(const Appearance& appearance) : m_appearance{appearance} {}

    const Observable<bool>& reducesMotion() const override { return m_appearance.reducesMotion(); }

private:
    const Appearance& m_appearance;
};

} // namespace velmorin
