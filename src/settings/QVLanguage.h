#pragma once

#include <QStringList>

/// The language folder for a language tag: "zh-Hans", "zh-Hant", and "en" for everything else.
[[nodiscard]] QString qv_languageFolderName(const QString &languageTag);

/// The first of the user's languages, as a tag that includes the script.
[[nodiscard]] QString qv_deviceLanguage();
[[nodiscard]] QString qv_deviceLanguage(const QStringList &preferredLanguages);
