#include "support/QVTestProgram.h"

#include <QApplication>

/// Tests of looks see the same fonts and the same size of text on every machine.
int main(int argc, char *argv[])
{
    qputenv("FONTCONFIG_FILE", QUARVO_LOOKS_FONTS);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QVTestProgram::prepare();
    QApplication application(argc, argv);
    QFont font(QStringList{QStringLiteral("Looks Sans"), QStringLiteral("Looks Han")});
    font.setPixelSize(13);
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
    return QVTestProgram::run();
}
