#include "settings/QVLanguageNotice.h"

QVLanguageNotice &QVLanguageNotice::shared()
{
    // Never destroyed, as the settings are not.
    static auto *const notice = new QVLanguageNotice;
    return *notice;
}
