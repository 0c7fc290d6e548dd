#include "sandbox/SandboxBehaviour.h"

#include <QMap>

namespace {

SandboxBehaviour onlyCode(const char *code)
{
    SandboxBehaviour behaviour;
    behaviour.code = QLatin1String(code);
    return behaviour;
}

SandboxBehaviour with(bool SandboxBehaviour::*trait)
{
    SandboxBehaviour behaviour;
    behaviour.*trait = true;
    return behaviour;
}

const QMap<QString, SandboxBehaviour> &table()
{
    static const QMap<QString, SandboxBehaviour> behaviours{
        {QStringLiteral("test-denied"), onlyCode("0101")},
        {QStringLiteral("test-fast"), onlyCode("0105")},
        {QStringLiteral("test-many"), onlyCode("0106")},
        {QStringLiteral("test-touch"), onlyCode("0315")},
        {QStringLiteral("test-expired"), onlyCode("1002")},
        {QStringLiteral("test-character"), with(&SandboxBehaviour::isCharacter)},
        {QStringLiteral("test-pass"), with(&SandboxBehaviour::passesOnClick)},
        {QStringLiteral("test-wrong"), with(&SandboxBehaviour::neverAccepts)},
        {QStringLiteral("test-slow"), with(&SandboxBehaviour::isSlow)},
        {QStringLiteral("test-badjson"), with(&SandboxBehaviour::isNotJson)},
        {QStringLiteral("test-broken-picture"), with(&SandboxBehaviour::breaksPictures)},
        {QStringLiteral("test-ad"), with(&SandboxBehaviour::hasAdvertisement)},
        {QStringLiteral("test-guide"), with(&SandboxBehaviour::hasGuide)},
    };
    return behaviours;
}

} // namespace

SandboxBehaviour SandboxBehaviour::of(const QString &id)
{
    return table().value(id);
}

QStringList SandboxBehaviour::ids()
{
    return table().keys();
}
