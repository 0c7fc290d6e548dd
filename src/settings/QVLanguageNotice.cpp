#include "settings/QVLanguageNotice.h"

QVLanguageNotice &QVLanguageNotice::shared()
{
    // Never destroyed, like the settings.
    static auto *const notice = new QVLanguageNotice;
    return *notice;
}
