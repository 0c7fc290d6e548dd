#pragma once

#include <QString>

/// Points the component at the sandbox whose addresses the program was given.
void configureHost(const QString &vid);
