#pragma once

#include <QString>

/// Sets the addresses of the component to those of the sandbox in the program's arguments.
void configureHost(const QString &vid);
