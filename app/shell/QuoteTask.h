#pragma once

#include "app/seams/Cancellable.h"
#include "app/shell/ScreenModel.h"

#include <QString>

namespace velmorin {

/// The sentence that a screen shows: drawn when the screen comes up and, where it rotates, again and again, until the
/// screen goes. Another moment is a new beginning; another language is that of the next sentence. Main thread.
class QuoteTask : public velmorin::ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Category category READ category WRITE setCategory NOTIFY categoryChanged)
    /// The moment that takes turns with the first one, beginning with the second sentence.
    Q_PROPERTY(Category alternate READ alternate WRITE setAlternate NOTIFY alternateChanged)
    /// Seconds for each sentence; 0 where the first one stays.
    Q_PROPERTY(double rotateEvery READ rotateEvery WRITE setRotateEvery NOTIFY rotateEveryChanged)
    /// Empty until the first one is drawn.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
    /// Whether the sentence has taken the place of another one by rotation.
    Q_PROPERTY(bool hasRotated READ hasRotated NOTIFY textChanged)

public:
    /// The cases of QuoteCategory, in its order, and none.
    enum Category { Urge, Returning, Rest, Exit, Finish, None };
    Q_ENUM(Category)

    using ScreenModel::ScreenModel;

    Category category() const { return m_category; }
    void setCategory(Category category);
    Category alternate() const { return m_alternate; }
    void setAlternate(Category alternate);
    double rotateEvery() const { return m_rotateEvery; }
    void setRotateEvery(double seconds);
    const QString& text() const { return m_text; }
    bool hasRotated() const { return m_hasRotated; }

Q_SIGNALS:
    void categoryChanged();
    void alternateChanged();
    void rotateEveryChanged();
    void textChanged();

protected:
    void begin() override { shownChanged(); }
    void shownChanged() override;

private:
    void restart();
    void draw(Category category);
    void rotate();
    void scheduleRotation();
    void beginAnew();

    Category m_category = Urge;
    Category m_alternate = None;
    double m_rotateEvery = 0;
    QString m_text;
    bool m_hasRotated = false;
    Category m_next = None; ///< whose turn it is
    Cancellable m_turn;     ///< the next sentence, or the new beginning
};

} // namespace velmorin
