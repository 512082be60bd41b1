#include "app/gallery/ScreenView.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

int main(int argumentCount, char** arguments) {
    ::testing::InitGoogleTest(&argumentCount, arguments);
    velmorin::ScreenView::drawOffscreen();
    const QGuiApplication application{argumentCount, arguments};
    velmorin::ScreenView::loadFonts();
    velmorin::ScreenView::onWarning([](const QString& text) { ADD_FAILURE() << text.toStdString(); });
    return RUN_ALL_TESTS();
}
