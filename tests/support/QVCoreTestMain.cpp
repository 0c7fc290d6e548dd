#include "support/QVTestProgram.h"

#include <QGuiApplication>

int main(int argc, char *argv[])
{
    QVTestProgram::prepare();
    QGuiApplication application(argc, argv);
    return QVTestProgram::run();
}
