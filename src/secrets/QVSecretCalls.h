#pragma once

#include "secrets/QVGlibLoop.h"
#include "secrets/QVSecureItem.h"

#include <libsecret/secret.h>
#include <string>
#include <vector>

/// The calls of the Secret Service that the store is made of, each waited for. None asks the user.
class QVSecretCalls
{
public:
    using Paths = std::vector<std::string>;
    using Reading = QVGlibLoop::Pending;

    QVSecretCalls(QVGlibLoop &loop, SecretService *service);

    /// Agrees on a key for what is read later, which otherwise the first reading does.
    [[nodiscard]] QVSecureStatus openSession();
    /// Finds the items that can be read. Not allowed where all that match are locked. What \a meanwhile
    /// begins is on its way together with the question.
    [[nodiscard]] QVSecureStatus search(const QVSecureQuery &query, Paths &paths,
                                        const std::function<void()> &meanwhile = {});
    /// Asks for an item's data.
    [[nodiscard]] Reading beginReading(const std::string &path);
    /// Waits for it.
    [[nodiscard]] QVSecureStatus finishReading(Reading &reading, QByteArray &data);
    [[nodiscard]] QVSecureStatus readAttributes(const std::string &path, QVSecureItem &item);
    [[nodiscard]] QVSecureStatus create(const QVSecureItem &item);
    [[nodiscard]] QVSecureStatus replace(const std::string &path, const QByteArray &data,
                                         const QString &accessibility);
    [[nodiscard]] QVSecureStatus remove(const std::string &path);

private:
    [[nodiscard]] QVSecureStatus open(const std::string &path, QVGlibPointer<SecretItem> &item);
    [[nodiscard]] QVSecureStatus setData(SecretItem *item, const QByteArray &data);
    [[nodiscard]] QVSecureStatus setAccessibility(SecretItem *item, const QString &accessibility);

    QVGlibLoop &m_loop;
    SecretService *m_service;
};
