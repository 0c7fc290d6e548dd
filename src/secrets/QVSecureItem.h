#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// The result of a call to the secure store. The numbers are the codes of its errors.
enum class QVSecureStatus : int {
    Success = 0,
    Unimplemented = -4,
    Param = -50,
    Allocate = -108,
    BadArguments = -1001,
    NotAvailable = -25291,
    AuthFailed = -25293,
    DuplicateItem = -25299,
    ItemNotFound = -25300,
    InteractionNotAllowed = -25308,
    Decode = -26275,
};

/// Selects items. A null field matches every item.
struct QVSecureQuery
{
    QString service;
    QString account;
    QString accessGroup;
};

/// A password in the secure store.
struct QVSecureItem
{
    QString service;
    QString account;
    QString accessGroup;
    QString label;
    QString accessibility;
    QByteArray data;
};
