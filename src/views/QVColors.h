#pragma once

#include "settings/QVColors.h"
