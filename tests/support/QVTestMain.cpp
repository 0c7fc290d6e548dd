#include "support/QVTestProgram.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QVTestProgram::prepare();
    QApplication application(argc, argv);
    // The component's text follows the size of the platform's font, which is not the same on all of them.
    QFont font = QApplication::font();
    font.setPointSize(9);
    QApplication::setFont(font);
    return QVTestProgram::run();
}
