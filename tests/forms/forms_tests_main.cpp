// Runs the tests of the windows without a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "forms/fonts.h"
#include "tests/forms/forms_program.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" CORVANE_SCREEN);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(corvane::interface_font(QApplication::font()));
    QApplication::setPalette(corvane::light_palette());
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
