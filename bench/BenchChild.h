#pragma once

#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>

/// What the programs of the benchmark are started with.
struct BenchSetting
{
    bool isShort = false;
    /// Where the programs are.
    QString folder;
    /// Where the sandbox is, as it told them.
    QString addresses;
    /// Without a key chain, and with one.
    QProcessEnvironment plain;
    QProcessEnvironment withKeys;
    /// The process of the key chain; 0 where there is none.
    qint64 keyring = 0;

    [[nodiscard]] int rounds(int whole, int shortened) const { return isShort ? shortened : whole; }
};

/// A program of the benchmark, which tells what it found as lines of JSON.
class BenchChild
{
public:
    BenchChild(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment);

    /// Waits for its end. Throws BenchFailure where it ended badly or told nothing.
    [[nodiscard]] QList<QJsonObject> results();
    [[nodiscard]] QJsonObject result() { return results().constFirst(); }

private:
    std::unique_ptr<QProcess> m_process;
};
